#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/manner.h"
#include "platform/desktop.h"
#include "platform/voice.h"
#include "speech/ISpeechNotify.h"
#include "speech/SpeechStyle.h"
#include "speech/SpokenText.h"
#include "speech/SpokenWords.h"

namespace corvane {

/// How much right a message has to be heard.
enum class Urgency {
  /// Cuts off what is being spoken, unless that is protected.
  Ordinary,
  /// Cuts off what is being spoken, and is protected from the next two ordinary
  /// messages: these wait until it has been spoken.
  Urgent,
  /// A dialog's words: cut off everything, also the greeting and another dialog's
  /// words, and stay until the user presses a key. What is said behind the dialog
  /// meanwhile waits, and of that only what the rule above would leave.
  Dialog,
};

/// Whether a message is one of those that can be heard again.
enum class Remembered { Yes, No };

/// The one rule of what cuts off what in all that the process says, whoever speaks
/// it. Everything goes through here; nobody else asks a voice to speak or to stop.
class SpeechOrder {
 public:
  /// All must outlive the order.
  SpeechOrder(Desktop& desktop, const Manner& manner, const SpeechChoices& choices)
      : desktop_(desktop), manner_(manner), text_(desktop, manner, choices) {}
  SpeechOrder(const SpeechOrder&) = delete;
  SpeechOrder& operator=(const SpeechOrder&) = delete;

  /// From now on the character speaks. Without one the desktop's own voice does.
  void SpeakWith(std::shared_ptr<AgentCharacter> character) { character_ = std::move(character); }
  /// Who hears when something has been said to its end.
  bool HasCharacter() const { return character_ != nullptr; }
  /// The character goes: silence, but for what a dialog says.
  void CharacterGoes();

  /// `text` may be marked with languages.
  AgentRequest Say(const std::string& text, SpeechStyle style, Urgency urgency,
                   Remembered remembered = Remembered::Yes);
  /// Says an ordinary message and tells once what became of it: false as soon as
  /// anything else is said, or it is cut off.
  void SayThrough(const std::string& text, SpeechStyle style, ISpeechNotify::Spoken spoken);
  /// Says something behind all that is being spoken or waits to be, which it does not
  /// cut off, and tells once what became of it. It is itself cut off like ordinary words.
  void SayBehind(const std::string& text, SpeechStyle style, ISpeechNotify::Spoken spoken);
  /// Says the character's first words, which only a dialog cuts off, or the user.
  AgentRequest Greet(const std::string& text);
  /// Cuts off what is being spoken and waits, but for what is kept.
  void StopSpeak();

  /// The user wants silence. What is established: the greeting is heard all the
  /// same.
  void Silence();
  /// The user goes on: what a dialog says may be cut off from now on.
  void UserGoesOn() { dialog_ = {}; }
  /// What has been said.
  SpokenWords& Words() { return words_; }
  /// A request of the character's has ended.
  void Ended(const AgentRequest& request, RequestEnd end);

 private:
  AgentRequest Speak(const std::string& text, SpeechStyle style, bool urgent,
                     Remembered remembered = Remembered::Yes);
  Voice& Speaking() const;
  void NoLongerFollowed();

  Desktop& desktop_;
  const Manner& manner_;
  std::shared_ptr<AgentCharacter> character_;
  SpokenText text_;
  std::map<int, std::vector<std::string>> told_;  // by request: see SpokenText::TakeTold
  SpokenWords words_;
  int protect_ = 0;      // ordinary messages that still cut nothing off
  AgentRequest dialog_;  // what a dialog says
  AgentRequest greeting_;
  AgentRequest followed_;  // what somebody waits for the end of
  ISpeechNotify::Spoken spoken_;
  /// Words behind others, until their ends are told.
  struct Behind {
    AgentRequest request;
    ISpeechNotify::Spoken spoken;
  };
  std::vector<Behind> behind_;
};

}  // namespace corvane
