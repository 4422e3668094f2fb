#pragma once

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// Makes silence about as long as the text would take to speak: for a system
/// without a synthesizer, so that everything else goes on as usual.
class SilentSynthesizer : public Synthesizer {
 public:
  void Synthesize(const std::string& text, const VoiceStyle& style, const Sink& sink) override;
};

}  // namespace corvane::desktop
