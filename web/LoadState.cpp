#include "web/LoadState.h"

#include <utility>

namespace corvane {

LoadState::LoadState(std::function<void()> begin, std::function<void()> complete)
    : begin_(std::move(begin)), complete_(std::move(complete)) {}

void LoadState::Requested() {
  phase_ = Phase::Requested;
  replaced_ = false;
}

void LoadState::Replaced() {
  phase_ = Phase::Requested;
  replaced_ = true;
}

void LoadState::Started() {
  const bool same = std::exchange(replaced_, false);
  phase_ = Phase::Started;
  if (open_ && same) return;
  if (std::exchange(open_, true)) complete_();
  begin_();
}

void LoadState::Committed() {
  if (phase_ != Phase::Requested) phase_ = Phase::Committed;
}

bool LoadState::Finished() {
  if (phase_ != Phase::Started && phase_ != Phase::Committed) return false;
  phase_ = Phase::Reading;
  return true;
}

bool LoadState::MovedInPlace() {
  if (phase_ != Phase::Requested || open_) return false;
  Started();
  return true;
}

bool LoadState::Idle() {
  if (phase_ == Phase::Idle || phase_ == Phase::Reading) return false;
  phase_ = Phase::Reading;
  return true;
}

void LoadState::Read() {
  phase_ = Phase::Idle;
  replaced_ = false;
  if (std::exchange(open_, false)) complete_();
}

}  // namespace corvane
