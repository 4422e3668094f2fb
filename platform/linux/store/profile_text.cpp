#include "platform/linux/store/profile_text.h"

#include <algorithm>

namespace corvane::desktop {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool Same(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\v\f";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != text.back()) return text;
  if (text.front() != '"' && text.front() != '\'') return text;
  return text.substr(1, text.size() - 2);
}

}  // namespace

std::string_view ProfileValue(std::string_view text, std::string_view section,
                              std::string_view key) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  bool inside = false;
  while (!text.empty()) {
    const auto end = text.find_first_of("\r\n");
    const auto line = Trimmed(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      if (inside) return {};  // only the first section of that name counts
      const auto close = line.find(']');
      inside = close != std::string_view::npos &&
               Same(Trimmed(line.substr(1, close - 1)), Trimmed(section));
      continue;
    }
    const auto equals = line.find('=');
    if (!inside || equals == std::string_view::npos) continue;
    if (Same(Trimmed(line.substr(0, equals)), Trimmed(key))) {
      return Unquoted(Trimmed(line.substr(equals + 1)));
    }
  }
  return {};
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  while (end < text.size()) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (begins && count-- == 0) break;
    ++end;
  }
  return std::string(text.substr(0, end));
}

}  // namespace corvane::desktop
