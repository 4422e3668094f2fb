#include "platform/linux/speech/silent_output.h"

#include <algorithm>
#include <utility>

namespace corvane::desktop {
namespace {

/// What a device would hold: 20 ms.
constexpr std::size_t kHeld = kSampleRate / 50;
constexpr double kHeldSeconds = static_cast<double>(kHeld) / kSampleRate;

}  // namespace

SilentOutput::SilentOutput(std::unique_ptr<PaceClock> clock) : clock_(std::move(clock)) {}

void SilentOutput::Begin() {
  const std::lock_guard lock(mutex_);
  stopped_ = false;
}

std::size_t SilentOutput::Write(std::span<const std::int16_t> samples) {
  std::unique_lock lock(mutex_);
  if (heard_at_ > clock_->Now()) {
    clock_->WaitUntil(heard_at_ - kHeldSeconds, lock, wake_, [&] { return stopped_; });
  }
  if (stopped_) return 0;
  const std::size_t taken = std::min(samples.size(), kHeld);
  heard_at_ = std::max(heard_at_, clock_->Now()) + static_cast<double>(taken) / kSampleRate;
  return taken;
}

bool SilentOutput::Drain() {
  std::unique_lock lock(mutex_);
  clock_->WaitUntil(heard_at_, lock, wake_, [&] { return stopped_; });
  return !stopped_;
}

void SilentOutput::Stop() {
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  heard_at_ = clock_->Now();
  wake_.notify_all();
}

}  // namespace corvane::desktop
