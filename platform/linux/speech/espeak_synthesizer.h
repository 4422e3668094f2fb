#pragma once

#include <string>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// Where the library has its voices; empty as long as it has not been started. On any
/// thread.
std::string EspeakDataFolder();

/// espeak-ng inside the process. The library keeps one state for the whole
/// process, so one of these may live at a time; RunTimeError when there is
/// another or when the voice data is missing.
class EspeakSynthesizer : public Synthesizer {
 public:
  EspeakSynthesizer();
  ~EspeakSynthesizer() override;
  EspeakSynthesizer(const EspeakSynthesizer&) = delete;
  EspeakSynthesizer& operator=(const EspeakSynthesizer&) = delete;

  void Synthesize(const std::string& text, const VoiceStyle& style, const Sink& sink) override;

 private:
  void UseVoice(const std::string& voice, const std::string& language, const std::string& chosen);
  void UseManner(const VoiceStyle& style, bool only_marks);

  std::string voice_;  // asked for
  std::string language_;
  std::string chosen_;
};

}  // namespace corvane::desktop
