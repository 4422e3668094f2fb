#include "speech/SpokenText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "speech/NearestLanguage.h"
#include "speech/SpokenLanguages.h"

namespace corvane {

/// The words of a text as they come, with a tag wherever the language or the voice
/// changes.
class TaggedWords {
 public:
  void Add(std::string_view language, const std::string& voice, std::string words) {
    Change("Lng", language == kOwnLanguage ? "" : std::string(language), language_);
    Change("Vce", voice, voice_);
    // A page's words may look like tags; they are none.
    text_ += text::replace_all(std::move(words), "\\", "/");
  }
  std::string Take() { return std::move(text_); }

 private:
  void Change(const char* tag, std::string value, std::string& present) {
    if (value == present) return;
    text_ += "\\" + std::string(tag) + "=" + value + "\\";
    present = std::move(value);
  }

  std::string text_;
  std::string language_;
  std::string voice_;
};

namespace {

// Of those the first that no language has been given speaks the program's own words.
constexpr std::array<std::string_view, 4> kProgramsVariants = {"f4", "m3", "f2", "m7"};

std::string NumberTag(const char* name, int value) {
  return "\\" + std::string(name) + "=" + std::to_string(value) + "\\";
}

/// Words that stand for others, with the blanks at those's ends.
std::string InPlaceOf(std::string_view others, const std::string& words) {
  const auto is_blank = [](char c) { return c == ' ' || c == '\n'; };
  return (is_blank(others.front()) ? " " : "") + words + (is_blank(others.back()) ? " " : "");
}

std::string VoiceTag(const LanguageVoice& voice) {
  return voice.variant.empty() ? voice.voice : voice.voice + "+" + voice.variant;
}

}  // namespace

// The platform's own values have no tag.
std::string SpokenText::Sound() const {
  const SpeechChoices usual;
  std::string tags;
  if (choices_.range != usual.range) tags += NumberTag("Rng", choices_.range);
  if (choices_.volume != usual.volume) tags += NumberTag("Vol", choices_.volume);
  if (choices_.punctuation != usual.punctuation) {
    tags += NumberTag("Pun", static_cast<int>(choices_.punctuation));
  }
  if (choices_.capitals != usual.capitals) {
    tags += NumberTag("Cap", static_cast<int>(choices_.capitals));
  }
  if (choices_.digits) tags += NumberTag("Dig", 1);
  return tags;
}

std::string SpokenText::For(const std::string& text, SpeechStyle style) {
  std::string tags = "\\Pit=" + number::digits(choices_.AroundPitch(style.pitch)) +
                     "\\\\Spd=" + number::digits(choices_.Around(style.speed)) + "\\" + Sound();
  if (choices_.sounds && style.sign != Sign::None) {
    tags += NumberTag("Snd", static_cast<int>(style.sign));
  }
  const LanguageVoice usual = ChosenFor(kOwnLanguage);
  LanguageVoice own = usual;
  if (style.whose == Whose::Program && manner_.own_voice) own.variant = ProgramsVariant();
  TaggedWords words;
  if (!manner_.languages) {
    for (LanguageRun& run : language::Runs(text)) {
      words.Add(kOwnLanguage, VoiceTag(run.language.empty() ? own : usual), std::move(run.text));
    }
    return tags + words.Take();
  }
  std::vector<LanguageRun> runs = SpokenRuns(text);
  std::string notes;
  for (const LanguageRun& run : runs) notes += NoteOn(run);
  if (!notes.empty()) words.Add(kOwnLanguage, VoiceTag(usual), notes);
  for (LanguageRun& run : runs) {
    const std::string primary(language::Primary(run.language));
    if (primary == kOwnLanguage) {
      words.Add(kOwnLanguage, VoiceTag(own), std::move(run.text));
    } else if (primary == language::kOfAPage ||
               choices_.Of(primary).heard == LanguageHeard::InOwnVoice) {
      words.Add(kOwnLanguage, VoiceTag(usual), std::move(run.text));
    } else {
      AddForeign(words, std::move(run), primary);
    }
  }
  return tags + words.Take();
}

void SpokenText::TellAgain(const std::vector<std::string>& languages) {
  for (const std::string& language : languages) voiceless_.erase(language);
}

// Empty where a voice speaks it, and where that none does has been told.
std::string SpokenText::NoteOn(const LanguageRun& run) {
  const std::string primary(language::Primary(run.language));
  const LanguageVoice voice = ChosenFor(primary);
  if (primary == kOwnLanguage || primary == language::kOfAPage || !voice.voice.empty() ||
      voice.heard != LanguageHeard::AsThePageSays) {
    return "";
  }
  const std::vector<InstalledVoice>& installed = desktop_.Voices().voices;
  if (installed.empty() || HasVoice(installed, primary)) return "";
  if (!voiceless_.insert(primary).second) return "";
  told_.push_back(primary);
  const std::string_view near = NearestLanguage(installed, primary);
  return "No voice for " + language::Name(primary) +
         (near.empty() ? ". " : ", " + language::Name(near) + " reads it. ");
}

// What a page has in a language of its own it has also within a question of the program's:
// never that one's voice.
void SpokenText::AddForeign(TaggedWords& words, LanguageRun run, std::string_view primary) const {
  const LanguageVoice voice = ChosenFor(primary);
  if (voice.heard == LanguageHeard::Not) {
    return words.Add(kOwnLanguage, VoiceTag(ChosenFor(kOwnLanguage)),
                     InPlaceOf(run.text, language::Name(primary) + " text"));
  }
  LanguageVoice speaker = voice;
  const std::vector<InstalledVoice>& installed = desktop_.Voices().voices;
  if (voice.voice.empty() && !installed.empty() && !HasVoice(installed, primary)) {
    if (const auto near = NearestLanguage(installed, primary); !near.empty()) {
      speaker = ChosenFor(near);
      if (speaker.voice.empty()) speaker.voice = VoiceOf(installed, near);
      if (!voice.variant.empty()) speaker.variant = voice.variant;
    }
  }
  words.Add(run.language, VoiceTag(speaker), std::move(run.text));
}

// A speech server has its own voices, and no variants of them.
LanguageVoice SpokenText::ChosenFor(std::string_view language) const {
  LanguageVoice voice = choices_.Of(language);
  if (desktop_.SpeaksThrough() != SpeechMaker::BuiltIn) {
    voice.voice = voice.server_voice;
    voice.variant.clear();
  }
  return voice;
}

std::string SpokenText::ProgramsVariant() const {
  const auto is_free = [&](std::string_view variant) {
    return std::none_of(choices_.languages.begin(), choices_.languages.end(),
                        [&](const auto& each) { return each.second.variant == variant; });
  };
  const auto* const at = std::find_if(kProgramsVariants.begin(), kProgramsVariants.end(), is_free);
  return std::string(at != kProgramsVariants.end() ? *at : kProgramsVariants.front());
}

std::string SpokenText::ForGreeting(const std::string& text) const {
  if (choices_ == SpeechChoices()) return text;
  TaggedWords words;
  words.Add(kOwnLanguage, VoiceTag(ChosenFor(kOwnLanguage)), text);
  return NumberTag("Spd", choices_.speed) + Sound() + words.Take();
}

}  // namespace corvane
