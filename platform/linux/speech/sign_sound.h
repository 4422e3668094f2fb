#pragma once

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// Hands a short sound to the sink: 1 for that something is on its way, 2 for that it is
/// done, as the tag `\Snd=n\` numbers them. `volume` in percent.
void PlaySound(int sound, int volume, const Synthesizer::Sink& sink);

}  // namespace corvane::desktop
