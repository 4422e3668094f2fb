#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// What the tags of a text ask for, and the text without them.
struct TaggedText {
  std::optional<int> pitch;  ///< empty: the character's own
  std::optional<int> speed;  ///< words a minute; empty: the character's own
  SpeechManner manner;
  int sound = 0;  ///< in place of the words; 0: the words
  std::string text;
  std::vector<SpokenRun> runs;  ///< of `text`, none of them empty
};

/// Takes the tags that Voice lists (capitals or not) off the start of a text. Without a
/// number a tag asks for the character's own. The tags `\Lng=de\` and `\Vce=de+f2\`
/// anywhere behind them say which language follows, and who speaks it. Whatever is no
/// such tag is text.
TaggedText ReadSpeechTags(const std::string& text);

}  // namespace corvane::desktop
