#include "speech/DialogSpeech.h"

#include <string>

#include "base/handling.h"
#include "base/number.h"
#include "speech/StoredChoice.h"

namespace corvane {
namespace {

constexpr int kMiddle = 2;  // of the five steps of the rate and pitch menus
constexpr int kLast = 4;

}  // namespace

DialogSpeech::DialogSpeech(Desktop& desktop, SpeechOrder& order, const SpeechWindows& windows)
    : desktop_(desktop), order_(order), windows_(windows), keys_(desktop.CreateKeyboardHook()) {
  connections_ += keys_->KeyDown.Connect([this](const PressedKey& key) { KeyDown(key); });
  keys_->SetEnabled(true);
  desktop_.SpeakDialogsThrough([this](const DialogWords& words) { Say(words); });
}

DialogSpeech::~DialogSpeech() { desktop_.SpeakDialogsThrough(nullptr); }

void DialogSpeech::Say(const DialogWords& words) {
  ErrorsIgnored([&] {
    if (windows_.Speaks(words.window)) order_.Say(words.text, StoredStyle(), Urgency::Dialog);
  });
}

// Runs before every key press.
void DialogSpeech::KeyDown(const PressedKey& key) {
  ErrorsIgnored([&] {
    if (key.code == kKeyControl) {
      order_.Silence();
    } else {
      order_.UserGoesOn();
    }
  });
}

// There may be no character that knows how the user wants it to sound.
SpeechStyle DialogSpeech::StoredStyle() const {
  const auto step = [this](const char* key) {
    int chosen = kMiddle;
    ErrorsIgnored([&] {
      chosen =
          number::to_integer(StoredChoice(desktop_.GetSettings(), key, std::to_string(kMiddle)));
    });
    return chosen >= 0 && chosen <= kLast ? chosen : kMiddle;
  };
  return {PitchOf(step("Pitch")), SpeedOf(step("Rate"))};
}

}  // namespace corvane
