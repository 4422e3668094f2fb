#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// Makes speech slower without changing its pitch, for speeds below what the
/// synthesizer can do: windows of 30 ms are laid over each other where they
/// resemble each other most (waveform similarity overlap-add).
class TimeStretch {
 public:
  /// `factor` times as long; at least 1.
  explicit TimeStretch(double factor) : factor_(factor) {}

  /// Takes samples and hands on what they make; false when the sink refused.
  bool Push(std::span<const std::int16_t> samples, const Synthesizer::Sink& sink);
  /// Hands on the rest. Nothing may be pushed afterwards.
  bool Finish(const Synthesizer::Sink& sink);

 private:
  bool Emit(const Synthesizer::Sink& sink, bool at_end);
  std::int64_t BestStart(std::int64_t natural, std::int64_t nominal) const;
  std::int16_t At(std::int64_t position) const;

  double factor_;
  std::vector<std::int16_t> input_;  ///< from position base_ on
  std::int64_t base_ = 0;
  std::int64_t frame_ = 0;
  std::int64_t natural_ = 0;  ///< where the last window would go on by itself
};

}  // namespace corvane::desktop
