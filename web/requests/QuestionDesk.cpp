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
  open_ = questions_->Ask(waiting_.front().question,
                          [this, here = life_.Look()](const DialogAnswer& reply) {
                            if (here) Answered(reply);
                          });
}

void QuestionDesk::Answered(const DialogAnswer& reply) {
  const auto here = life_.Look();
  const Answer answer = std::move(waiting_.front().answer);
  waiting_.pop_front();
  open_.reset();
  answer(reply);  // may ask again, or be the end of the desk
  if (here && !open_) Next();
}

void QuestionDesk::Reset() {
  open_.reset();
  for (const auto& waiting : std::exchange(waiting_, {})) waiting.answer(std::nullopt);
}

}  // namespace corvane
