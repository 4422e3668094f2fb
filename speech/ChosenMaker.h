#pragma once

#include "base/event.h"
#include "platform/desktop.h"
#include "speech/SpeechOrder.h"
#include "speech/SpeechSettings.h"
#include "speech/SpeechWindows.h"

namespace corvane {

/// Has the sound made by whom the user has chosen, and says it when that one is lost or
/// the desktop has anything else to tell.
class ChosenMaker {
 public:
  /// All must outlive this object.
  ChosenMaker(Desktop& desktop, SpeechOrder& order, SpeechSettings& settings,
              const SpeechWindows& windows);

 private:
  void Say(const std::string& text, int times);

  Desktop& desktop_;
  SpeechOrder& order_;
  const SpeechWindows& windows_;
  Connections connections_;
};

}  // namespace corvane
