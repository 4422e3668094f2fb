#pragma once

#include <glib.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/web/requests/questions.h"

namespace corvane::desktop {

/// A user who answers questions as told, or leaves them open.
class Asking : public Questions {
 public:
  std::shared_ptr<void> Ask(const DialogQuestion& question,
                            std::function<void(const DialogAnswer&)> done) override {
    asked.push_back(question);
    open = std::move(done);
    const auto number = ++count_;
    if (!replies.empty()) {
      const DialogAnswer reply = replies.front();
      if (replies.size() > 1 || once) replies.erase(replies.begin());
      g_idle_add_once(
          [](gpointer data) {
            const std::unique_ptr<std::function<void()>> call(
                static_cast<std::function<void()>*>(data));
            (*call)();
          },
          new std::function<void()>([this, number, reply] {
            if (number == count_) Answer(reply);
          }));
    }
    return std::shared_ptr<void>(this, [number](void* self) {
      auto& asking = *static_cast<Asking*>(self);
      if (number == asking.count_ && asking.open) {
        asking.open = nullptr;
        ++asking.taken_back;
      }
    });
  }
  /// Answers the open question; nothing when it was taken back.
  void Answer(const DialogAnswer& reply) {
    if (const auto done = std::exchange(open, nullptr)) done(reply);
  }
  std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const auto& question : asked) titles.push_back(question.title);
    return titles;
  }

  std::vector<DialogQuestion> asked;
  /// The replies to come, the last one for all that follow unless `once`. Empty:
  /// the questions stay open.
  std::vector<DialogAnswer> replies;
  bool once = false;
  std::function<void(const DialogAnswer&)> open;
  int taken_back = 0;

 private:
  int count_ = 0;
};

}  // namespace corvane::desktop
