#include "platform/linux/speech/speech_tags.h"

#include <charconv>
#include <string_view>

#include "base/language.h"
#include "base/text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kMostDigits = 6;
constexpr std::string_view kLanguage = "\\Lng=";
constexpr std::string_view kVoice = "\\Vce=";

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

bool MayBeAVoice(std::string_view name) {
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_+";
  return name.find_first_not_of(kAllowed) == std::string_view::npos;
}

/// A tag within the words.
struct NameTag {
  std::size_t start = std::string_view::npos;  ///< none
  std::size_t end = 0;                         ///< behind it
  bool is_language = false;
  std::string_view name;
};

// The first tag with a name that may be a language's or a voice's, or with none.
NameTag FindNameTag(std::string_view text) {
  for (std::size_t at = text.find('\\'); at != std::string_view::npos;
       at = text.find('\\', at + 1)) {
    const std::string_view rest = text.substr(at);
    const bool is_language = rest.starts_with(kLanguage);
    if (!is_language && !rest.starts_with(kVoice)) continue;
    const std::size_t end = rest.find('\\', kLanguage.size());
    if (end == std::string_view::npos) break;
    const std::string_view name = rest.substr(kLanguage.size(), end - kLanguage.size());
    const bool fits = is_language ? language::Tag(name) == name : MayBeAVoice(name);
    if (name.empty() || fits) return {at, at + end + 1, is_language, name};
  }
  return {};
}

void AddRun(TaggedText& tagged, std::string_view words, const SpokenRun& how) {
  if (words.empty()) return;
  tagged.text += words;
  tagged.runs.push_back({std::string(words), how.language, how.voice});
}

/// Takes one tag of the manner off the text; false when there is none.
bool TakeMannerTag(std::string_view& text, TaggedText& tagged) {
  std::optional<int> value;
  SpeechManner& manner = tagged.manner;
  const SpeechManner usual;
  if (TakeTag(text, "\\rng=", value)) {
    manner.range = value.value_or(usual.range);
  } else if (TakeTag(text, "\\vol=", value)) {
    manner.volume = value.value_or(usual.volume);
  } else if (TakeTag(text, "\\pun=", value)) {
    manner.punctuation = value.value_or(usual.punctuation);
  } else if (TakeTag(text, "\\cap=", value)) {
    manner.capitals = value.value_or(usual.capitals);
  } else if (TakeTag(text, "\\dig=", value)) {
    manner.digits = value.value_or(0) != 0;
  } else if (TakeTag(text, "\\snd=", value)) {
    tagged.sound = value.value_or(0);
  } else {
    return false;
  }
  return true;
}

}  // namespace

TaggedText ReadSpeechTags(const std::string& text) {
  TaggedText tagged;
  std::string_view rest = text;
  while (TakeTag(rest, "\\pit=", tagged.pitch) || TakeTag(rest, "\\spd=", tagged.speed) ||
         TakeMannerTag(rest, tagged)) {
  }
  SpokenRun how;
  for (;;) {
    const NameTag tag = FindNameTag(rest);
    AddRun(tagged, rest.substr(0, tag.start), how);
    if (tag.start == std::string_view::npos) return tagged;
    (tag.is_language ? how.language : how.voice) = tag.name;
    rest.remove_prefix(tag.end);
  }
}

}  // namespace corvane::desktop
