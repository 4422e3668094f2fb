#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/speech/synthesizer.h"
#include "platform/voice.h"

namespace corvane::desktop {

/// A command of SSIP that says how what follows is to sound: what is set, and to what.
struct SsipSetting {
  std::string name;
  std::string value;
};

/// How a text is to sound, in SSIP's words; in an order in which one does not undo the
/// other. `text` decides whether its marks are named.
std::vector<SsipSetting> SsipSettings(const VoiceStyle& style, const std::string& text);

/// A text as SSIP takes it, with a mark in front of each word but the first, which is
/// named after the word's place in the text in bytes.
std::string SsipText(const std::string& text);

/// Where the word ends that begins at a place; blanks behind it included.
std::size_t EndOfWord(std::string_view text, std::size_t place);

/// A server's name for a voice as one of InstalledVoice, and back; empty where it is none.
std::string VoiceNameOf(std::string_view ssip_name);
std::string SsipNameOf(std::string_view voice_name);

/// The voices of the answer to "LIST SYNTHESIS_VOICES", those without a variant first.
InstalledVoices VoicesOfList(const std::vector<std::string>& lines);

}  // namespace corvane::desktop
