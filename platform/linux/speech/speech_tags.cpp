#include "platform/linux/speech/speech_tags.h"

#include <charconv>
#include <string_view>

#include "base/language.h"
#include "base/text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kMostDigits = 6;
constexpr std::string_view kLanguage = "\\Lng=";

/// Takes one tag off the text and keeps its number; false when there is none.
bool TakeTag(std::string_view& text, std::string_view start, std::optional<int>& value) {
  if (!text::starts_ignoring_case(text, start)) return false;
  const std::string_view rest = text.substr(start.size());
  const std::size_t end = rest.find('\\');
  if (end == std::string_view::npos || end > kMostDigits) return false;
  const std::string_view digits = rest.substr(0, end);
  if (digits.find_first_not_of("0123456789") != std::string_view::npos) return false;
  value.reset();
  if (!digits.empty()) {
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    value = number;
  }
  text = rest.substr(end + 1);
  return true;
}

// A tag with a name that may be a language's, or with none.
std::size_t FindLanguageTag(std::string_view text) {
  std::size_t at = text.find(kLanguage);
  for (; at != std::string_view::npos; at = text.find(kLanguage, at + 1)) {
    const std::size_t start = at + kLanguage.size();
    const std::size_t end = text.find('\\', start);
    if (end == std::string_view::npos) return end;
    const std::string_view name = text.substr(start, end - start);
    if (name.empty() || language::Tag(name) == name) break;
  }
  return at;
}

void AddRun(TaggedText& tagged, std::string_view words, const std::string& language) {
  if (words.empty()) return;
  tagged.text += words;
  tagged.runs.push_back({std::string(words), language});
}

}  // namespace

TaggedText ReadSpeechTags(const std::string& text) {
  TaggedText tagged;
  std::string_view rest = text;
  while (TakeTag(rest, "\\pit=", tagged.pitch) || TakeTag(rest, "\\spd=", tagged.speed)) {
  }
  std::string language;
  for (;;) {
    const std::size_t tag = FindLanguageTag(rest);
    AddRun(tagged, rest.substr(0, tag), language);
    if (tag == std::string_view::npos) return tagged;
    rest.remove_prefix(tag + kLanguage.size());
    const std::size_t end = rest.find('\\');
    language = rest.substr(0, end);
    rest.remove_prefix(end + 1);
  }
}

}  // namespace corvane::desktop
