#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvane::desktop {

/// What the synthesizer calls the voices that may speak a language, best first: its files
/// are named after languages.
std::vector<std::string> VoicesOf(const std::string& language);

/// Pages' other names for a language that the synthesizer calls so.
std::vector<std::string> OtherNamesOf(std::string_view language);

}  // namespace corvane::desktop
