#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>

#include "platform/linux/speech/audio_output.h"
#include "platform/linux/speech/pace_clock.h"

namespace corvane::desktop {

/// No sound, but the time that the sound would take: speech without a device
/// begins, ends and is cut as with one.
class SilentOutput : public AudioOutput {
 public:
  explicit SilentOutput(std::unique_ptr<PaceClock> clock = MakeRealClock());

  void Begin() override;
  std::size_t Write(std::span<const std::int16_t> samples) override;
  bool Drain() override;
  void Stop() override;

 private:
  std::mutex mutex_;
  std::condition_variable wake_;
  std::unique_ptr<PaceClock> clock_;
  bool stopped_ = true;
  double heard_at_ = 0;  ///< when everything written will have been heard
};

}  // namespace corvane::desktop
