#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane::desktop {

/// One value of a profile (INI) text as the original platform's reader finds it:
/// the first section and key of that name without regard to case, blanks around
/// both sides trimmed, one pair of quotes around the value taken off. Lines that
/// are neither sections nor assignments and comments (";") are passed over, line
/// ends may be of any kind and a byte order mark may come first.
std::string_view ProfileValue(std::string_view text, std::string_view section,
                              std::string_view key);

/// The first `count` characters of UTF-8 text, never a part of one.
std::string FirstCharacters(std::string_view text, std::size_t count);

}  // namespace corvane::desktop
