#include "platform/linux/speech/silent_synthesizer.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "platform/linux/speech/speech_text.h"

namespace corvane::desktop {
namespace {

constexpr int kCharactersPerWord = 6;  ///< five letters and a blank, the usual measure

std::size_t CountCharacters(std::string_view text) {
  std::size_t count = 0;
  while (!text.empty()) {
    text::take_character(text);
    ++count;
  }
  return count;
}

}  // namespace

void SilentSynthesizer::Synthesize(const std::string& text, const VoiceStyle& style,
                                   const Sink& sink) {
  const int speed = std::clamp(style.speed, kSpeedLowest, kSpeedHighest);
  const std::size_t samples_per_character = kSampleRate * 60 / (speed * kCharactersPerWord);
  static constexpr std::array<std::int16_t, 1024> kSilence{};
  TextPieces pieces(text);
  for (std::string piece; pieces.Next(piece);) {
    for (std::size_t left = CountCharacters(piece) * samples_per_character; left > 0;) {
      const std::size_t now = std::min(left, kSilence.size());
      if (!sink(std::span(kSilence).first(now))) return;
      left -= now;
    }
  }
}

}  // namespace corvane::desktop
