#include "base/profile_text.h"

#include "base/text.h"

namespace corvane::profile {
namespace {

std::string_view Trimmed(std::string_view text) { return text::trimmed(text, " \t\v\f"); }

std::string_view Unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != text.back()) return text;
  if (text.front() != '"' && text.front() != '\'') return text;
  return text.substr(1, text.size() - 2);
}

}  // namespace

std::string_view value(std::string_view content, std::string_view section, std::string_view key) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (content.starts_with(kMark)) content.remove_prefix(kMark.size());
  bool inside = false;
  while (!content.empty()) {
    const auto end = content.find_first_of("\r\n");
    const auto line = Trimmed(content.substr(0, end));
    content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      if (inside) return {};  // only the first section of that name counts
      const auto close = line.find(']');
      inside = close != std::string_view::npos &&
               text::same_ignoring_case(Trimmed(line.substr(1, close - 1)), Trimmed(section));
      continue;
    }
    const auto equals = line.find('=');
    if (!inside || equals == std::string_view::npos) continue;
    if (text::same_ignoring_case(Trimmed(line.substr(0, equals)), Trimmed(key))) {
      return Unquoted(Trimmed(line.substr(equals + 1)));
    }
  }
  return {};
}

}  // namespace corvane::profile
