#pragma once

#include "base/manner.h"
#include "platform/desktop.h"
#include "speech/ChosenMaker.h"
#include "speech/DialogSpeech.h"
#include "speech/PageHush.h"
#include "speech/SpeechOptions.h"
#include "speech/SpeechOrder.h"
#include "speech/SpeechSettings.h"
#include "speech/SpeechWindows.h"

namespace corvane {

/// What all speech of the process shares, whether there is a character or not.
struct ProcessSpeech {
  /// `desktop` and `how` must outlive it. `all`: the browser windows.
  explicit ProcessSpeech(
      Desktop& desktop, const Manner& how = kEstablishedManner,
      SpeechWindows::All all = [] { return std::vector<std::shared_ptr<ISpeechWindow>>(); })
      : manner(how),
        settings(desktop.GetSettings()),
        options(desktop, settings),
        order(desktop, how, settings.Current()),
        windows(desktop, std::move(all)),
        dialogs(desktop, order, settings, windows),
        maker(desktop, order, settings, windows),
        hush(desktop, how, settings.Current()) {}

  const Manner& manner;
  SpeechSettings settings;
  SpeechOptions options;
  SpeechOrder order;
  SpeechWindows windows;
  DialogSpeech dialogs;
  ChosenMaker maker;
  PageHush hush;
};

}  // namespace corvane
