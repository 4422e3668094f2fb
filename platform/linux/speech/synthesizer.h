#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "base/language.h"
#include "platform/linux/speech/sound_format.h"

namespace corvane::desktop {

/// The ends of the pitch menu and what is used when nobody asks for a pitch.
inline constexpr int kPitchLowest = 50;
inline constexpr int kPitchDefault = 90;
inline constexpr int kPitchHighest = 130;

/// Words a minute. Slower than the least would be hard to follow, faster than
/// the most is beyond espeak-ng (its espeakRATE_MAXIMUM).
inline constexpr int kSpeedLowest = 40;
inline constexpr int kSpeedDefault = 150;
inline constexpr int kSpeedHighest = 450;

/// The voice of whoever asks for none.
inline constexpr const char* kDefaultVoice = "en";

/// The language that a voice is named after: that of "pt-br+f2" is "pt-br".
std::string VoiceLanguage(const std::string& voice);

/// How a text is to sound.
struct VoiceStyle {
  std::string voice;          ///< the synthesizer's name for it; empty for its default
  int pitch = kPitchDefault;  ///< on the menu's scale; held to its ends
  int speed = kSpeedDefault;  ///< words a minute; held to the limits above
  std::string language = {};  ///< of the text, as in LanguageRun; empty: the voice's own
};

/// Turns text into sound. Made, used and destroyed on one thread, which is never
/// the user-interface thread.
class Synthesizer {
 public:
  /// Takes the next samples; false ends the synthesis.
  using Sink = std::function<bool(std::span<const std::int16_t>)>;

  virtual ~Synthesizer() = default;
  /// Hands the sound of `text` to `sink` in chunks of a few tens of milliseconds
  /// and returns when all is handed over or the sink has refused. The text may be
  /// anything: whatever is not speakable is passed over.
  virtual void Synthesize(const std::string& text, const VoiceStyle& style, const Sink& sink) = 0;
};

/// Makes a synthesizer, on the thread that will use it; RunTimeError when it
/// cannot be had.
using SynthesizerMaker = std::function<std::unique_ptr<Synthesizer>()>;

}  // namespace corvane::desktop
