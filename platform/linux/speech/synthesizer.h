#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "base/language.h"
#include "platform/linux/speech/sound_format.h"

namespace corvane::desktop {

/// The ends of what can be asked for and what is used when nobody asks for a pitch; the
/// menu's steps lie between 50 and 130.
inline constexpr int kPitchLowest = 40;
inline constexpr int kPitchDefault = 90;
inline constexpr int kPitchHighest = 139;

/// Words a minute. Slower than the least would be hard to follow; who can follow the
/// most is not known.
inline constexpr int kSpeedLowest = 40;
inline constexpr int kSpeedDefault = 150;
inline constexpr int kSpeedHighest = 900;

/// The voice of whoever asks for none.
inline constexpr const char* kDefaultVoice = "en";

/// The language that a voice is named after: that of "pt-br+f2" is "pt-br".
std::string VoiceLanguage(const std::string& voice);

/// A part of a text as it is to be spoken.
struct SpokenRun {
  std::string text = {};
  std::string language = {};  ///< as in LanguageRun; empty: the voice's own
  /// Who speaks it: a voice's name, a variant's behind a plus; what is not there is as
  /// it would be anyway.
  std::string voice = {};

  bool operator==(const SpokenRun&) const = default;
};

/// How a text is to be read; each number as its tag has it (Voice).
struct SpeechManner {
  int range = 50;
  int volume = 100;
  int punctuation = 1;
  int capitals = 0;
  bool digits = false;

  bool operator==(const SpeechManner&) const = default;
};

/// How a text is to sound.
struct VoiceStyle {
  std::string voice;          ///< the synthesizer's name for it; empty for its default
  int pitch = kPitchDefault;  ///< on the menu's scale; held to the limits above
  int speed = kSpeedDefault;  ///< words a minute; held to the limits above
  std::string language = {};  ///< of the text, as in SpokenRun
  std::string chosen = {};    ///< who speaks it, as in SpokenRun
  SpeechManner manner = {};
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
