#pragma once

#include <string_view>

namespace corvane::text {

/// The text without the blanks at both its ends.
inline std::string_view trimmed(std::string_view text, std::string_view blanks = " \t\r\n") {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace corvane::text
