#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/voice.h"

namespace corvane {

/// The name of the first voice that speaks a language (language::Primary); empty when
/// there is none.
std::string VoiceOf(const std::vector<InstalledVoice>& voices, std::string_view language);

/// Whether one speaks it.
bool HasVoice(const std::vector<InstalledVoice>& voices, std::string_view language);

/// The language with a voice whose readers make most of the other one's words; empty
/// when there is none near.
std::string_view NearestLanguage(const std::vector<InstalledVoice>& voices,
                                 std::string_view language);

}  // namespace corvane
