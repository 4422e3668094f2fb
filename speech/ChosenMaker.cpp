#include "speech/ChosenMaker.h"

#include <string>

#include "speech/StoredStyle.h"

namespace corvane {
namespace {

constexpr const char* kLost = "Speech Dispatcher does not answer. The built in voice goes on.";
constexpr int kMostTimes = 4;  // that it is begun, while keys cut it off

}  // namespace

ChosenMaker::ChosenMaker(Desktop& desktop, SpeechOrder& order, SpeechSettings& settings,
                         const SpeechWindows& windows)
    : desktop_(desktop), order_(order), windows_(windows) {
  connections_ += settings.Changed.Connect(
      [this, &settings] { desktop_.SpeakThrough(settings.Current().maker); });
  connections_ +=
      desktop.Notice.Connect([this](const std::string& text) { Say(text, kMostTimes); });
  connections_ += desktop.SpeechMakerLost.Connect([this](SpeechMaker) { Say(kLost, kMostTimes); });
}

// Behind the words that are being said; who cuts it off with them has not heard it.
void ChosenMaker::Say(const std::string& text, int times) {
  if (times == 0 || !windows_.Speaks(desktop_.GetWindows().Active())) return;
  SpeechStyle style = StoredStyle(desktop_);
  style.whose = Whose::Program;
  if (!order_.HasCharacter()) {
    order_.Say(text, style, Urgency::Ordinary);
    return;
  }
  order_.SayBehind(text, style, [this, text, times](bool done) {
    if (!done) Say(text, times - 1);
  });
}

}  // namespace corvane
