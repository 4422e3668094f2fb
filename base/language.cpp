#include "base/language.h"

#include <algorithm>

#include "base/text.h"

namespace corvane::language {
namespace {

constexpr std::size_t kLongestTag = 35;  // longer ones are no language's name
// U+E0001 begins a mark; U+E0020 to U+E007E behind it spell the language in ASCII, and
// U+E007F instead of them ends what the last mark began.
constexpr std::string_view kMark = "\U000E0001";
constexpr std::string_view kEnd = "\U000E007F";
constexpr std::string_view kTagStart = "\xF3\xA0";  // of each of these characters

bool IsLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

void AppendTagCharacter(std::string& text, char c) {
  text += kTagStart;
  text += static_cast<char>(0x80 + (c >> 6));
  text += static_cast<char>(0x80 + (c & 0x3F));
}

/// Takes the tag character at the text's start off it; 0 when there is none.
char TakeTagCharacter(std::string_view& text) {
  if (text.size() < 4 || !text.starts_with(kTagStart) || text.starts_with(kEnd)) return 0;
  const int code = (static_cast<unsigned char>(text[2]) - 0x80) * 64 +
                   (static_cast<unsigned char>(text[3]) - 0x80);
  if (code < 0x20 || code > 0x7E) return 0;
  text.remove_prefix(4);
  return static_cast<char>(code);
}

}  // namespace

std::string Tag(std::string_view name) {
  if (name.empty() || name.size() > kLongestTag) return {};
  std::string tag;
  for (const char c : name) {
    if (!IsLetterOrDigit(c) && c != '-' && c != '_') return {};
    tag += c == '_' ? '-' : text::lower(c);
  }
  const std::size_t primary = Primary(tag).size();
  return primary < 2 || primary > 8 ? std::string() : tag;
}

std::string_view Primary(std::string_view tag) { return tag.substr(0, tag.find('-')); }

std::string Marked(std::string_view text, std::string_view tag) {
  if (text.empty() || tag.empty()) return std::string(text);
  std::string marked(kMark);
  for (const char c : tag) AppendTagCharacter(marked, c);
  marked += text;
  marked += kMark;
  marked += kEnd;
  return marked;
}

std::vector<LanguageRun> Runs(std::string_view text) {
  std::vector<LanguageRun> runs;
  std::vector<std::string> around = {""};  // the languages that are open, outermost first
  const auto add = [&](std::string_view words) {
    if (words.empty()) return;
    if (!runs.empty() && runs.back().language == around.back()) {
      runs.back().text += words;
    } else {
      runs.push_back({std::string(words), around.back()});
    }
  };
  while (!text.empty()) {
    const std::size_t mark = text.find(kMark);
    add(text.substr(0, mark));
    if (mark == std::string_view::npos) break;
    text.remove_prefix(mark + kMark.size());
    if (text.starts_with(kEnd)) {
      text.remove_prefix(kEnd.size());
      if (around.size() > 1) around.pop_back();
      continue;
    }
    std::string name;
    while (const char c = TakeTagCharacter(text)) name += c;
    if (std::string tag = Tag(name); !tag.empty()) around.push_back(std::move(tag));
  }
  return runs;
}

std::string Unmarked(std::string_view text) {
  if (text.find(kMark) == std::string_view::npos) return std::string(text);
  std::string words;
  for (const LanguageRun& run : Runs(text)) words += run.text;
  return words;
}

}  // namespace corvane::language
