#include "platform/linux/web/navigation.h"

#include <utility>

namespace corvane::desktop {

Navigation::Navigation(std::function<void()> begin, std::function<void()> complete)
    : begin_(std::move(begin)), complete_(std::move(complete)) {}

void Navigation::Requested() {
  phase_ = Phase::Requested;
  replaced_ = false;
}

void Navigation::Replaced() {
  phase_ = Phase::Requested;
  replaced_ = true;
}

void Navigation::Started() {
  const bool same = std::exchange(replaced_, false);
  phase_ = Phase::Started;
  if (open_ && same) return;
  if (std::exchange(open_, true)) complete_();
  begin_();
}

void Navigation::Committed() {
  if (phase_ != Phase::Requested) phase_ = Phase::Committed;
}

bool Navigation::Finished() {
  if (phase_ != Phase::Started && phase_ != Phase::Committed) return false;
  phase_ = Phase::Reading;
  return true;
}

bool Navigation::MovedInPlace() {
  if (phase_ != Phase::Requested || open_) return false;
  Started();
  return true;
}

bool Navigation::Idle() {
  if (phase_ == Phase::Idle || phase_ == Phase::Reading) return false;
  phase_ = Phase::Reading;
  return true;
}

void Navigation::Read() {
  phase_ = Phase::Idle;
  replaced_ = false;
  if (std::exchange(open_, false)) complete_();
}

}  // namespace corvane::desktop
