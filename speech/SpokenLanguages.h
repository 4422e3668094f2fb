#pragma once

#include <string_view>
#include <vector>

#include "base/language.h"

namespace corvane {

/// The language of the program's own words.
inline constexpr std::string_view kOwnLanguage = "en";

/// A text's runs as they are to be spoken, each with its language: the one that it is
/// marked with, or the program's own; where that cannot be right, since it is written in
/// other letters, the one that the letters tell. What has neither letters nor digits goes
/// with what is before it.
std::vector<LanguageRun> SpokenRuns(std::string_view text);

}  // namespace corvane
