#pragma once

#include <memory>

#include "platform/desktop.h"
#include "speech/SpeechOrder.h"
#include "speech/SpeechSettings.h"
#include "speech/SpeechWindows.h"

namespace corvane {

/// Whether the key makes speech faster or slower, wherever the user is.
bool ChangesSpeed(const PressedKey& key);

/// Speaks for the desktop's own dialogs and message boxes, with a character or
/// without, when the window that they belong to is heard; and hears the keys that
/// let go of what a dialog says, Control's silence among them, and those that make speech
/// faster or slower. One a process.
class DialogSpeech {
 public:
  /// All must outlive it.
  DialogSpeech(Desktop& desktop, SpeechOrder& order, SpeechSettings& settings,
               const SpeechWindows& windows);
  ~DialogSpeech();
  DialogSpeech(const DialogSpeech&) = delete;
  DialogSpeech& operator=(const DialogSpeech&) = delete;

 private:
  void Say(const DialogWords& words);
  void KeyDown(const PressedKey& key);
  void ChangeSpeed(const PressedKey& key);

  Desktop& desktop_;
  SpeechOrder& order_;
  SpeechSettings& settings_;
  const SpeechWindows& windows_;
  std::unique_ptr<KeyboardHook> keys_;
  Connections connections_;
};

}  // namespace corvane
