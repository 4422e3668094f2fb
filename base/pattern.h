#pragma once

#include <string_view>

namespace corvane::pattern {

/// Whether the whole text fits a wildcard pattern: `*` is any run of characters,
/// `?` one character, `#` one digit, `[abc]` and `[a-z]` one character of a list,
/// `[!a-z]` one that is not in it. ASCII letters fit in either case. A list that
/// is never closed fits nothing.
bool matches(std::string_view text, std::string_view pattern);

}  // namespace corvane::pattern
