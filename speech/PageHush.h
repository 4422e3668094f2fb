#pragma once

#include <memory>

#include "base/event.h"
#include "base/manner.h"
#include "platform/desktop.h"
#include "speech/SpeechChoices.h"

namespace corvane {

/// Keeps pages from drowning the words: while anything is said they are lower. They rise
/// when there has been silence for a moment, so that they do not surge between two
/// sentences.
class PageHush {
 public:
  /// All must outlive this object.
  PageHush(Desktop& desktop, const Manner& manner, const SpeechChoices& choices);

 private:
  void Speaks(bool speaks);
  void MakeTimer();

  Desktop& desktop_;
  PageSound& pages_;
  const Manner& manner_;
  const SpeechChoices& choices_;
  std::unique_ptr<Timer> silence_;  // none: nothing has been said yet
  Connections connections_;
};

}  // namespace corvane
