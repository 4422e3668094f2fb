#include "speech/DialogSpeech.h"

#include <string>

#include "base/handling.h"
#include "speech/StoredStyle.h"

namespace corvane {

bool ChangesSpeed(const PressedKey& key) {
  return key.shift == (kCtrlMask | kAltMask) &&
         (key.code == kKeyPageUp || key.code == kKeyPageDown);
}

DialogSpeech::DialogSpeech(Desktop& desktop, SpeechOrder& order, SpeechSettings& settings,
                           const SpeechWindows& windows)
    : desktop_(desktop),
      order_(order),
      settings_(settings),
      windows_(windows),
      keys_(desktop.CreateKeyboardHook()) {
  connections_ += keys_->KeyDown.Connect([this](const PressedKey& key) { KeyDown(key); });
  keys_->SetEnabled(true);
  desktop_.SpeakDialogsThrough([this](const DialogWords& words) { Say(words); });
}

DialogSpeech::~DialogSpeech() { desktop_.SpeakDialogsThrough(nullptr); }

void DialogSpeech::Say(const DialogWords& words) {
  ErrorsIgnored([&] {
    if (!windows_.Speaks(words.window)) return;
    SpeechStyle style = StoredStyle(desktop_);
    if (!words.from_page) style.whose = Whose::Program;
    order_.Say(words.text, style, Urgency::Dialog);
  });
}

// Runs before every key press.
void DialogSpeech::KeyDown(const PressedKey& key) {
  ErrorsIgnored([&] {
    if (key.code == kKeyControl) {
      order_.Silence();
    } else {
      order_.UserGoesOn();
      if (ChangesSpeed(key)) ChangeSpeed(key);
    }
  });
}

// Where keys are explained this one does nothing else.
void DialogSpeech::ChangeSpeed(const PressedKey& key) {
  const WindowHandle active = desktop_.GetWindows().Active();
  if (!windows_.Speaks(active) || windows_.UsersAnswersKey(key.code)) return;
  const int speed = settings_.ChangeSpeed(key.code == kKeyPageUp);
  order_.Say("Speed " + std::to_string(speed), StoredStyle(desktop_), Urgency::Ordinary,
             Remembered::No);
}

}  // namespace corvane
