#include "platform/linux/speech/time_stretch.h"

#include <algorithm>
#include <cmath>

namespace corvane::desktop {
namespace {

constexpr std::int64_t kHop = kSampleRate * 15 / 1000;    ///< half a window
constexpr std::int64_t kSearch = kSampleRate * 8 / 1000;  ///< one period of a low voice

}  // namespace

bool TimeStretch::Push(std::span<const std::int16_t> samples, const Synthesizer::Sink& sink) {
  input_.insert(input_.end(), samples.begin(), samples.end());
  return Emit(sink, false);
}

bool TimeStretch::Finish(const Synthesizer::Sink& sink) { return Emit(sink, true); }

std::int16_t TimeStretch::At(std::int64_t position) const {
  const std::int64_t index = position - base_;
  return index >= 0 && index < std::ssize(input_) ? input_[index] : std::int16_t{0};
}

std::int64_t TimeStretch::BestStart(std::int64_t natural, std::int64_t nominal) const {
  std::int64_t best = nominal;
  double best_likeness = -1;
  for (std::int64_t start = std::max(base_, nominal - kSearch); start <= nominal + kSearch;
       ++start) {
    double product = 0;
    double energy = 1;
    for (std::int64_t i = 0; i < kHop; i += 3) {
      const double sample = At(start + i);
      product += sample * At(natural + i);
      energy += sample * sample;
    }
    const double likeness = product / std::sqrt(energy);
    if (likeness > best_likeness) {
      best_likeness = likeness;
      best = start;
    }
  }
  return best;
}

bool TimeStretch::Emit(const Synthesizer::Sink& sink, bool at_end) {
  const std::int64_t end = base_ + std::ssize(input_);
  std::vector<std::int16_t> output;
  for (;;) {
    const auto nominal = static_cast<std::int64_t>(static_cast<double>(frame_ * kHop) / factor_);
    const std::int64_t needed = std::max(natural_, nominal + kSearch) + kHop;
    if (at_end ? nominal >= end : needed > end) break;
    const std::int64_t start = frame_ == 0 ? 0 : BestStart(natural_, nominal);
    for (std::int64_t i = 0; i < kHop; ++i) {
      const double in = static_cast<double>(i) / kHop;
      output.push_back(static_cast<std::int16_t>(At(natural_ + i) * (1 - in) + At(start + i) * in));
    }
    natural_ = start + kHop;
    ++frame_;
    const std::int64_t keep = std::min(natural_, nominal - kSearch);
    // Drop in large steps, so that a long text costs no more a second than a short one.
    if (keep - base_ > 16 * kHop) {
      input_.erase(input_.begin(), input_.begin() + (keep - base_));
      base_ = keep;
    }
  }
  return output.empty() || sink(output);
}

}  // namespace corvane::desktop
