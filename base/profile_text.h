#pragma once

#include <string_view>

namespace corvane::profile {

/// One value of a profile (INI) text as the reader that made the format finds it:
/// the first section and key of that name without regard to case, blanks around
/// both sides trimmed, one pair of quotes around the value taken off. Lines that
/// are neither sections nor assignments and comments (";") are passed over, line
/// ends may be of any kind and a byte order mark may come first.
std::string_view value(std::string_view content, std::string_view section, std::string_view key);

}  // namespace corvane::profile
