#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/linux/glib/later.h"
#include "tests/fakes/fake_questions.h"

namespace corvane::desktop {

/// A user who answers questions as told, or leaves them open.
class Asking : public fakes::FakeQuestions {
 public:
  std::shared_ptr<void> Ask(const DialogQuestion& question,
                            std::function<void(const DialogAnswer&)> done) override {
    auto asking = FakeQuestions::Ask(question, std::move(done));
    if (replies.empty()) return asking;
    const DialogAnswer reply = replies.front();
    if (replies.size() > 1 || once) replies.erase(replies.begin());
    PostToLoop(
        [this, number = count_, reply] {
          if (number == count_) Answer(reply);
        },
        Turn::WhenIdle);
    return asking;
  }

  /// The replies to come, the last one for all that follow unless `once`. Empty:
  /// the questions stay open.
  std::vector<DialogAnswer> replies;
  bool once = false;
};

}  // namespace corvane::desktop
