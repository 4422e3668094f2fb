#pragma once

#include <string>
#include <vector>

#include "base/event.h"
#include "platform/settings_store.h"
#include "speech/SpeechChoices.h"

namespace corvane {

/// How speech is to sound, as the user's settings have it.
class SpeechSettings {
 public:
  explicit SpeechSettings(SettingsStore& store) : store_(store) {}

  /// The choices in force. The same object for good; what follows changes it.
  const SpeechChoices& Current() const { return choices_; }
  /// Takes the store's values. Returns the names of those settings whose stored value is
  /// none of theirs; they count as not stored.
  std::vector<std::string> Read();
  /// From now on, but not for good: while the user tries what he likes.
  void Try(SpeechChoices choices);
  /// For good: stores those that are not as they are stored.
  void Keep(const SpeechChoices& choices);
  /// Makes speech a tenth faster or slower, for good; returns the words a minute.
  int ChangeSpeed(bool faster);

  /// Others may be in force now.
  Event<> Changed;

 private:
  std::string Stored(const std::string& key) const;

  SettingsStore& store_;
  SpeechChoices choices_;
};

}  // namespace corvane
