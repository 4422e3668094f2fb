#pragma once

#include <string>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

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
  void UseVoice(const std::string& voice, const std::string& language);

  std::string voice_;  // asked for
  std::string language_;
};

}  // namespace corvane::desktop
