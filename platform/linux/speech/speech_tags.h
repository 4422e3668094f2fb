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
  std::string text;
  std::vector<LanguageRun> runs;  ///< of `text`, none of them empty
};

/// Takes the tags `\Pit=n\` and `\Spd=n\` (capitals or not) off the start of a
/// text. Without a number a tag asks for the character's own. The tag `\Lng=de\`
/// anywhere behind them says which language follows. Whatever is no such tag is text.
TaggedText ReadSpeechTags(const std::string& text);

}  // namespace corvane::desktop
