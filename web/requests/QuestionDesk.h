#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/life.h"
#include "platform/questions.h"
#include "web/requests/Allowance.h"

namespace corvane {

/// Puts what the pages of one view want to know to the user: one question at a
/// time, and no more of them than a user can bear. What is not asked gets no
/// reply, and whoever asked then does what is safe.
class QuestionDesk {
 public:
  using Answer = std::function<void(std::optional<DialogAnswer>)>;
  enum class Asker {
    Page,  ///< counts: after a few questions in a minute no more are asked
    User,  ///< follows from what the user just did; always asked
  };

  /// `questions` may be null: then nothing is ever asked. `too_many` is called
  /// when a question is left out because there were too many.
  QuestionDesk(std::shared_ptr<Questions> questions, std::function<void()> too_many,
               Allowance::Clock now = &Allowance::SteadyClock);
  ~QuestionDesk();
  QuestionDesk(const QuestionDesk&) = delete;
  QuestionDesk& operator=(const QuestionDesk&) = delete;

  /// Whose questions these are, as DialogQuestion::asker.
  void AskFor(void* page) { page_ = page; }
  /// The answer may come at once or later, and comes exactly once.
  void Ask(Asker asker, DialogQuestion question, Answer answer);
  /// The page has gone: takes back what is asked. All get no reply.
  void Reset();

 private:
  struct Waiting {
    DialogQuestion question;
    Answer answer;
  };
  static constexpr int kMost = 5;
  static constexpr int kSeconds = 60;
  static constexpr std::size_t kLongestQueue = 5;

  void Next();
  void Answered(const DialogAnswer& reply);

  std::shared_ptr<Questions> questions_;
  std::function<void()> too_many_;
  void* page_ = nullptr;
  Allowance allowance_;
  std::deque<Waiting> waiting_;  // the first one is on the screen
  std::shared_ptr<void> open_;
  Life life_;  // replies that come after the desk find it gone
};

}  // namespace corvane
