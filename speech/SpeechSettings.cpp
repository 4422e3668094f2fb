#include "speech/SpeechSettings.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "base/language.h"

namespace corvane {
namespace {

constexpr const char* kApplication = "Corvane";
constexpr const char* kSection = "Settings";
constexpr const char* kLanguageVoices = "LanguageVoices";
constexpr std::size_t kMostLanguages = 200;

/// A setting: how it is written, and how it is read. What cannot be read says so.
struct Row {
  const char* key;
  std::string (*text)(const SpeechChoices&);
  bool (*read)(std::string_view text, SpeechChoices&);
};

std::optional<int> WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

template <auto member, int least, int most>
constexpr Row Number(const char* key) {
  return {key, [](const SpeechChoices& choices) { return std::to_string(choices.*member); },
          [](std::string_view text, SpeechChoices& choices) {
            const auto number = WholeNumber(text);
            if (!number || *number < least || *number > most) return false;
            choices.*member = *number;
            return true;
          }};
}

constexpr std::array<std::string_view, 4> kPunctuation = {"none", "some", "most", "all"};
constexpr std::array<std::string_view, 3> kCapitals = {"not", "pitch", "word"};
constexpr std::array<std::string_view, 3> kHeard = {"page", "own", "not"};
constexpr std::array<std::string_view, 2> kMakers = {"builtin", "dispatcher"};
constexpr std::array<std::string_view, 2> kSwitch = {"False", "True"};

template <auto member, const auto& names>
constexpr Row Choice(const char* key) {
  return {key,
          [](const SpeechChoices& choices) {
            return std::string(names[static_cast<std::size_t>(choices.*member)]);
          },
          [](std::string_view text, SpeechChoices& choices) {
            const auto* const at = std::find(names.begin(), names.end(), text);
            if (at == names.end()) return false;
            using Value = std::remove_cvref_t<decltype(choices.*member)>;
            choices.*member = static_cast<Value>(at - names.begin());
            return true;
          }};
}

// The synthesizer looks voices up as files, and no other file must be reachable.
bool MayBeAName(std::string_view name) {
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
  constexpr std::size_t kMost = 200;
  return name.size() <= kMost && name.find_first_not_of(kAllowed) == std::string_view::npos;
}

std::string_view TakeUpTo(std::string_view& rest, char end) {
  const std::size_t at = rest.find(end);
  const std::string_view taken = rest.substr(0, at);
  rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + 1);
  return taken;
}

// "de:page:de+Annie fr:own es:page::Spanish_20_28Spain_29"
std::string LanguagesText(const SpeechChoices& choices) {
  std::string text;
  for (const auto& [language, voice] : choices.languages) {
    if (voice == LanguageVoice()) continue;
    if (!text.empty()) text += " ";
    text += language + ":" + std::string(kHeard[static_cast<std::size_t>(voice.heard)]);
    if (voice.voice.empty() && voice.variant.empty() && voice.server_voice.empty()) continue;
    text += ":" + voice.voice;
    if (!voice.variant.empty()) text += "+" + voice.variant;
    if (!voice.server_voice.empty()) text += ":" + voice.server_voice;
  }
  return text;
}

bool ReadLanguages(std::string_view text, SpeechChoices& choices) {
  SpeechChoices read;
  while (!text.empty()) {
    std::string_view entry = TakeUpTo(text, ' ');
    const std::string_view language = TakeUpTo(entry, ':');
    const std::string_view heard = TakeUpTo(entry, ':');
    std::string_view variant = TakeUpTo(entry, ':');
    const std::string_view voice = TakeUpTo(variant, '+');
    const auto* const at = std::find(kHeard.begin(), kHeard.end(), heard);
    if (language::Tag(language) != language || language::Primary(language) != language ||
        language.empty() || at == kHeard.end() || !MayBeAName(voice) || !MayBeAName(variant) ||
        !MayBeAName(entry) || read.languages.size() >= kMostLanguages) {
      return false;
    }
    read.languages.insert_or_assign(
        std::string(language),
        LanguageVoice{static_cast<LanguageHeard>(at - kHeard.begin()), std::string(voice),
                      std::string(variant), std::string(entry)});
  }
  choices.languages = std::move(read.languages);
  return true;
}

// One setting a row; docs/settings.md has the same rows.
constexpr std::array kRows = {
    Number<&SpeechChoices::speed, SpeechChoices::kSlowest, SpeechChoices::kFastest>("SpeechSpeed"),
    Number<&SpeechChoices::pitch, 0, 100>("SpeechPitch"),
    Number<&SpeechChoices::range, 0, 100>("PitchRange"),
    Number<&SpeechChoices::volume, 10, 100>("Volume"),
    Choice<&SpeechChoices::punctuation, kPunctuation>("Punctuation"),
    Choice<&SpeechChoices::capitals, kCapitals>("Capitals"),
    Choice<&SpeechChoices::digits, kSwitch>("Digits"),
    Choice<&SpeechChoices::sounds, kSwitch>("Sounds"),
    Number<&SpeechChoices::page_level, 0, 100>("PageLevel"),
    Choice<&SpeechChoices::maker, kMakers>("SpeechOutput"),
    Row{kLanguageVoices, &LanguagesText, &ReadLanguages},
};

SpeechChoices ReadFrom(const SettingsStore& store, std::vector<std::string>* unusable) {
  const SpeechChoices usual;
  SpeechChoices choices;
  for (const Row& row : kRows) {
    const std::string stored = store.GetSetting(kApplication, kSection, row.key, row.text(usual));
    if (!row.read(stored, choices) && unusable != nullptr) unusable->emplace_back(row.key);
  }
  return choices;
}

}  // namespace

std::vector<std::string> SpeechSettings::Read() {
  std::vector<std::string> unusable;
  Try(ReadFrom(store_, &unusable));
  return unusable;
}

void SpeechSettings::Try(SpeechChoices choices) {
  choices_ = std::move(choices);
  Changed.Raise();
}

void SpeechSettings::Keep(const SpeechChoices& choices) {
  Try(choices);
  const SpeechChoices stored = ReadFrom(store_, nullptr);
  for (const Row& row : kRows) {
    const std::string text = row.text(choices);
    if (text != row.text(stored)) store_.SaveSetting(kApplication, kSection, row.key, text);
  }
}

int SpeechSettings::ChangeSpeed(bool faster) {
  SpeechChoices choices = choices_;
  const int step = (choices.speed + 5) / 10;
  choices.speed = std::clamp(choices.speed + (faster ? step : -step), SpeechChoices::kSlowest,
                             SpeechChoices::kFastest);
  Keep(choices);
  return choices.speed;
}

}  // namespace corvane
