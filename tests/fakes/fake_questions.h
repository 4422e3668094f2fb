#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/questions.h"

namespace corvane::fakes {

/// A user who leaves questions open until the test answers them.
class FakeQuestions : public Questions {
 public:
  std::shared_ptr<void> Ask(const DialogQuestion& question,
                            std::function<void(const DialogAnswer&)> done) override {
    asked.push_back(question);
    open = std::move(done);
    return std::shared_ptr<void>(this, [number = ++count_](void* self) {
      auto& questions = *static_cast<FakeQuestions*>(self);
      if (number != questions.count_ || !questions.open) return;
      questions.open = nullptr;
      ++questions.taken_back;
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
  std::function<void(const DialogAnswer&)> open;
  int taken_back = 0;

 protected:
  int count_ = 0;
};

}  // namespace corvane::fakes
