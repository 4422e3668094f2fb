#include "platform/linux/speech/sign_sound.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace corvane::desktop {
namespace {

constexpr int kWorking = 1;
constexpr double kLoudest = 6000;  // about as loud as speech
constexpr double kFade = 0.008;    // seconds, so that nothing clicks

void AddTone(std::vector<std::int16_t>& samples, double frequency, double seconds,
             double loudness) {
  const auto count = static_cast<int>(seconds * kSampleRate);
  const double fade = kFade * kSampleRate;
  for (int i = 0; i < count; ++i) {
    const double edge = std::min({1.0, i / fade, (count - i) / fade});
    const double phase = 2 * std::numbers::pi * frequency * i / kSampleRate;
    samples.push_back(static_cast<std::int16_t>(loudness * edge * std::sin(phase)));
  }
}

}  // namespace

// Under way is one low tone, done is two that go up.
void PlaySound(int sound, int volume, const Synthesizer::Sink& sink) {
  const double loudness = kLoudest * std::clamp(volume, 0, 100) / 100;
  std::vector<std::int16_t> samples;
  if (sound == kWorking) {
    AddTone(samples, 440, 0.06, loudness);
  } else {
    AddTone(samples, 660, 0.06, loudness);
    AddTone(samples, 990, 0.09, loudness);
  }
  sink(samples);
}

}  // namespace corvane::desktop
