#pragma once

namespace corvane::desktop {

/// Samples a second of all sound here: espeak-ng's own rate. One channel, 16 bits.
inline constexpr int kSampleRate = 22050;

}  // namespace corvane::desktop
