#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// One text to be spoken.
struct Utterance {
  std::string text = {};  ///< UTF-8; shown in the transcript as it is
  /// Its parts in their languages; empty: all of it in the voice's own.
  std::vector<SpokenRun> runs = {};
  SpeechManner manner = {};
  int sound = 0;  ///< heard in place of the text; 0: the text
  int pitch = kPitchDefault;
  int speed = kSpeedDefault;
  bool urgent = false;     ///< only noted in the transcript
  std::string voice = {};  ///< the synthesizer's name for it; empty for its default
  /// The same for runs in other languages that ask for none, by language::Primary.
  std::map<std::string, std::string> voices = {};
  int pitch_shift = 0;  ///< the character's own, added to what was asked
  int speed_shift = 0;  ///< words a minute, added to what was asked
};

}  // namespace corvane::desktop
