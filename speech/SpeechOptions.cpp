#include "speech/SpeechOptions.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "base/language.h"
#include "base/number.h"
#include "speech/SpokenLanguages.h"

namespace corvane {
namespace {

enum Option : std::size_t {
  kSpeed,
  kPitch,
  kRange,
  kVolume,
  kPunctuation,
  kCapitals,
  kDigits,
  kSounds,
  kPageLevel,
  kMaker,
  kLanguage,
  kHeard,
  kVoice,
  kVariant
};

using Words = std::vector<std::string>;

const Words kPunctuationWords = {"none", "some", "most", "all"};
const Words kCapitalWords = {"as small ones", "by a higher pitch", "by the word capital"};
const Words kHeardWords = {"as the page says", "in the program's own voice", "not"};
const Words kMakerWords = {"built in", "Speech Dispatcher"};
constexpr const char* kUsual = "the usual one";
constexpr int kWideSteps = 450;  // words a minute, where the steps between speeds widen

std::string Flag(bool on) { return on ? "True" : "False"; }

/// Every `step` of a range, and the present value in its place among them.
Words Numbers(int least, int most, int step, int present) {
  std::set<int> values = {present, most};
  for (int value = least; value < most; value += step) values.insert(value);
  Words words;
  for (const int value : values) words.push_back(std::to_string(value));
  return words;
}

Words Speeds(int present) {
  Words speeds = Numbers(SpeechChoices::kSlowest, kWideSteps, 10, std::min(present, kWideSteps));
  const Words wide =
      Numbers(kWideSteps + 25, SpeechChoices::kFastest, 25, std::max(present, kWideSteps + 25));
  speeds.insert(speeds.end(), wide.begin(), wide.end());
  return speeds;
}

std::size_t IndexOf(const Words& words, const std::string& value) {
  const auto at = std::find(words.begin(), words.end(), value);
  return at == words.end() ? 0 : static_cast<std::size_t>(at - words.begin());
}

/// What lets a choice be heard that its own name does not.
std::string Example(std::size_t option) {
  switch (option) {
    case kPunctuation:
      return "For example (1 + 1 = 2), \"yes\".";
    case kCapitals:
      return "For example Ada Lovelace.";
    case kDigits:
      return "For example 2048.";
    default:
      return "";
  }
}

}  // namespace

SpeechOptions::SpeechOptions(Desktop& desktop, SpeechSettings& settings)
    : desktop_(desktop), settings_(settings), language_(kOwnLanguage) {}

OwnOptions SpeechOptions::Options() {
  return {
      .page = "Spe&ech",
      .list =
          [this] {
            trying_ = settings_.Current();
            language_ = kOwnLanguage;
            return List();
          },
      .apply = [this](const Words& values) { Apply(values); },
      .try_out = [this](const Words& values, std::size_t changed) { return Try(values, changed); },
      .take_back = [this] { settings_.Read(); }};
}

std::vector<OwnOption> SpeechOptions::List() {
  const LanguageVoice& voice = trying_.Of(language_);
  Words languages;
  for (const std::string& each : Languages()) languages.push_back(language::Name(each));
  const Words labels = VoiceLabels();
  Words heard = kHeardWords;
  if (language_ == kOwnLanguage) heard.resize(1);
  Words variants = {kUsual};
  const Words& installed = desktop_.Voices().variants;
  variants.insert(variants.end(), installed.begin(), installed.end());
  const auto& voices = desktop_.Voices().voices;
  const auto chosen = std::find_if(voices.begin(), voices.end(), [&](const InstalledVoice& each) {
    return each.name == OwnVoice() && language::Primary(each.language) == language_;
  });
  return {
      {"Speed, words a minute", Speeds(trying_.speed), std::to_string(trying_.speed)},
      {"Pitch", Numbers(0, 100, 5, trying_.pitch), std::to_string(trying_.pitch)},
      {"Range of the pitch", Numbers(0, 100, 5, trying_.range), std::to_string(trying_.range)},
      {"Volume, percent", Numbers(10, 100, 10, trying_.volume), std::to_string(trying_.volume)},
      {"Punctuation that is named", kPunctuationWords,
       kPunctuationWords[static_cast<std::size_t>(trying_.punctuation)]},
      {"Capital letters", kCapitalWords, kCapitalWords[static_cast<std::size_t>(trying_.capitals)]},
      {"Digits one by one", {}, Flag(trying_.digits)},
      {"Sounds in place of \"Working...\" and \"Done\"", {}, Flag(trying_.sounds)},
      {"Sound of pages behind speech, percent", Numbers(0, 100, 10, trying_.page_level),
       std::to_string(trying_.page_level)},
      {"Output", kMakerWords, kMakerWords[static_cast<std::size_t>(trying_.maker)]},
      {"Language", languages, language::Name(language_)},
      {"Words in it are heard", heard, kHeardWords[static_cast<std::size_t>(voice.heard)]},
      {"Its voice", labels, chosen == voices.end() ? kUsual : chosen->label},
      {"Variant of the voice", variants, voice.variant.empty() ? kUsual : voice.variant},
  };
}

// The program's own comes first.
std::vector<std::string> SpeechOptions::Languages() const {
  std::set<std::pair<std::string, std::string>> others;  // by their names
  const auto add = [&](std::string_view tag) {
    const std::string primary(language::Primary(tag));
    if (primary != kOwnLanguage) others.emplace(language::Name(primary), primary);
  };
  for (const InstalledVoice& voice : desktop_.Voices().voices) add(voice.language);
  for (const auto& [tag, voice] : trying_.languages) add(tag);
  std::vector<std::string> languages = {std::string(kOwnLanguage)};
  for (const auto& [name, tag] : others) languages.push_back(tag);
  return languages;
}

std::string SpeechOptions::OwnVoice() const {
  LanguageVoice voice = trying_.Of(language_);
  return voice.VoiceOf(desktop_.SpeaksThrough());
}

Words SpeechOptions::VoiceLabels() const {
  Words labels = {kUsual};
  for (const InstalledVoice& voice : desktop_.Voices().voices) {
    if (language::Primary(voice.language) == language_) labels.push_back(voice.label);
  }
  return labels;
}

void SpeechOptions::Take(std::size_t option, const std::string& value) {
  const auto number = [&] { return static_cast<int>(number::leading(value)); };
  LanguageVoice& voice = trying_.languages[language_];
  switch (option) {
    case kSpeed:
      trying_.speed = std::clamp(number(), SpeechChoices::kSlowest, SpeechChoices::kFastest);
      break;
    case kPitch:
      trying_.pitch = std::clamp(number(), 0, 100);
      break;
    case kRange:
      trying_.range = std::clamp(number(), 0, 100);
      break;
    case kVolume:
      trying_.volume = std::clamp(number(), 10, 100);
      break;
    case kPunctuation:
      trying_.punctuation = static_cast<Punctuation>(IndexOf(kPunctuationWords, value));
      break;
    case kCapitals:
      trying_.capitals = static_cast<Capitals>(IndexOf(kCapitalWords, value));
      break;
    case kDigits:
      trying_.digits = value == "True";
      break;
    case kSounds:
      trying_.sounds = value == "True";
      break;
    case kPageLevel:
      trying_.page_level = std::clamp(number(), 0, 100);
      break;
    case kMaker:
      trying_.maker = static_cast<SpeechMaker>(IndexOf(kMakerWords, value));
      break;
    case kLanguage:
      for (const std::string& each : Languages()) {
        if (language::Name(each) == value) language_ = each;
      }
      break;
    case kHeard:
      voice.heard = static_cast<LanguageHeard>(IndexOf(kHeardWords, value));
      break;
    case kVoice: {
      std::string& name = voice.VoiceOf(desktop_.SpeaksThrough());
      name.clear();
      for (const InstalledVoice& each : desktop_.Voices().voices) {
        const bool is_its = language::Primary(each.language) == language_;
        if (is_its && each.label == value) name = each.name;
      }
      break;
    }
    case kVariant:
      voice.variant = value == kUsual ? "" : value;
      break;
    default:
      break;
  }
  std::erase_if(trying_.languages, [](const auto& each) { return each.second == LanguageVoice(); });
}

OwnChange SpeechOptions::Try(const Words& values, std::size_t changed) {
  if (changed < values.size()) Take(changed, values[changed]);
  settings_.Try(trying_);
  return {List(), SampleLanguage(changed), Example(changed)};
}

// The dialog's own voice is not the one that is being chosen.
std::string SpeechOptions::SampleLanguage(std::size_t changed) const {
  if (changed < kSounds || changed == kMaker) return std::string(language::kOfAPage);
  if (changed != kVoice && changed != kVariant) return "";
  if (trying_.Of(language_).heard != LanguageHeard::AsThePageSays) return "";
  return language_ == kOwnLanguage ? std::string(language::kOfAPage) : language_;
}

void SpeechOptions::Apply(const Words& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (values[i] != List().at(i).value) Take(i, values[i]);
  }
  settings_.Keep(trying_);
}

}  // namespace corvane
