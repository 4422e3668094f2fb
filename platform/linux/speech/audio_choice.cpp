#include <utility>

#include "platform/linux/speech/audio_output.h"
#include "platform/linux/speech/pulse_output.h"
#include "platform/linux/speech/silent_output.h"
#include "platform/linux/speech/wav_output.h"

namespace corvane::desktop {

std::unique_ptr<AudioOutput> MakeAudioOutput(const std::string& choice, Notice notice) {
  constexpr std::string_view kWav = "wav:";
  if (choice == "null") return std::make_unique<SilentOutput>();
  if (choice.starts_with(kWav)) {
    return std::make_unique<WavOutput>(choice.substr(kWav.size()), std::move(notice));
  }
  return std::make_unique<PulseOutput>("", std::move(notice));
}

}  // namespace corvane::desktop
