#include "web/requests/QuestionDesk.h"

#include <utility>

namespace corvane {

QuestionDesk::QuestionDesk(std::shared_ptr<Questions> questions, std::function<void()> too_many,
                           Allowance::Clock now)
    : questions_(std::move(questions)),
      too_many_(std::move(too_many)),
      allowance_(kMost, kSeconds, std::move(now)) {}

QuestionDesk::~QuestionDesk() {
  life_.End();
  Reset();
}

void QuestionDesk::Ask(Asker asker, DialogQuestion question, Answer answer) {
  if (!questions_) return answer(std::nullopt);
  const bool room = waiting_.size() < kLongestQueue;
  if (!room || (asker == Asker::Page && !allowance_.Take())) {
    too_many_();
    return answer(std::nullopt);
  }
  if (question.asker == nullptr) question.asker = page_;
  waiting_.push_back({std::move(question), std::move(answer)});
  if (!open_) Next();
}

void QuestionDesk::Next() {
  if (waiting_.empty()) return;
  const auto reply = [this, here = life_.Look()](const DialogAnswer& given) {
    if (!here) return;
    const Answer answer = std::move(waiting_.front().answer);
    const Life::Watch desk = here;  // this function goes with the question
    QuestionDesk& self = *this;
    waiting_.pop_front();
    open_.reset();
    answer(given);  // may ask again, or be the end of the desk
    if (desk && !self.open_) self.Next();
  };
  open_ = questions_->Ask(waiting_.front().question, reply);
}

void QuestionDesk::Reset() {
  open_.reset();
  for (const auto& waiting : std::exchange(waiting_, {})) waiting.answer(std::nullopt);
}

}  // namespace corvane
