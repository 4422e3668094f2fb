#pragma once

#include <memory>

#include "platform/desktop.h"
#include "speech/SpeechOrder.h"
#include "speech/SpeechWindows.h"

namespace corvane {

/// Speaks for the desktop's own dialogs and message boxes, with a character or
/// without, when the window that they belong to is heard; and hears the keys that
/// let go of what a dialog says, Control's silence among them. One a process.
class DialogSpeech {
 public:
  /// All must outlive it.
  DialogSpeech(Desktop& desktop, SpeechOrder& order, const SpeechWindows& windows);
  ~DialogSpeech();
  DialogSpeech(const DialogSpeech&) = delete;
  DialogSpeech& operator=(const DialogSpeech&) = delete;

 private:
  void Say(const DialogWords& words);
  void KeyDown(const PressedKey& key);
  SpeechStyle StoredStyle() const;

  Desktop& desktop_;
  SpeechOrder& order_;
  const SpeechWindows& windows_;
  std::unique_ptr<KeyboardHook> keys_;
  Connections connections_;
};

}  // namespace corvane
