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

Reader::Reader(std::string_view content) : rest_(content) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (rest_.starts_with(kMark)) rest_.remove_prefix(kMark.size());
}

bool Reader::Next() {
  while (!rest_.empty()) {
    const auto end = rest_.find_first_of("\r\n");
    const auto line = Trimmed(rest_.substr(0, end));
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (line.empty() || line.front() == ';') continue;
    opens_section = line.front() == '[';
    if (opens_section) {
      const auto close = line.find(']');
      section = close == std::string_view::npos ? "" : Trimmed(line.substr(1, close - 1));
      return true;
    }
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) continue;
    key = Trimmed(line.substr(0, equals));
    value = Trimmed(line.substr(equals + 1));
    return true;
  }
  return false;
}

std::string_view value(std::string_view content, std::string_view section, std::string_view key) {
  bool inside = false;
  for (Reader line(content); line.Next();) {
    if (line.opens_section) {
      if (inside) return {};  // only the first section of that name counts
      inside = !line.section.empty() && text::same_ignoring_case(line.section, Trimmed(section));
    } else if (inside && text::same_ignoring_case(line.key, Trimmed(key))) {
      return Unquoted(line.value);
    }
  }
  return {};
}

}  // namespace corvane::profile
