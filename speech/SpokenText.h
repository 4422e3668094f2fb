#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/language.h"
#include "base/manner.h"
#include "platform/desktop.h"
#include "speech/SpeechChoices.h"
#include "speech/SpeechStyle.h"

namespace corvane {

class TaggedWords;

/// Writes what is to be said for a voice: tags of how it is to sound, then the words,
/// each run of them with its language and the voice that is chosen for it. What nobody
/// has chosen has no tag.
class SpokenText {
 public:
  /// All must outlive this object.
  SpokenText(Desktop& desktop, const Manner& manner, const SpeechChoices& choices)
      : desktop_(desktop), manner_(manner), choices_(choices) {}

  /// `text` may be marked with languages. Backslashes in it are spoken as slashes, so
  /// that it never contains a tag.
  std::string For(const std::string& text, SpeechStyle style);
  /// The languages of which the last text has told that no voice speaks them.
  std::vector<std::string> TakeTold() { return std::exchange(told_, {}); }
  /// They have not been heard: they are told again.
  void TellAgain(const std::vector<std::string>& languages);
  /// The character's first words, which sound as the character does but for what is
  /// chosen.
  std::string ForGreeting(const std::string& text) const;

 private:
  std::string Sound() const;
  LanguageVoice ChosenFor(std::string_view language) const;
  std::string ProgramsVariant() const;
  std::string NoteOn(const LanguageRun& run);
  void AddForeign(TaggedWords& words, LanguageRun run, std::string_view primary) const;

  Desktop& desktop_;
  const Manner& manner_;
  const SpeechChoices& choices_;
  std::set<std::string, std::less<>> voiceless_;  // languages of which that has been told
  std::vector<std::string> told_;
};

}  // namespace corvane
