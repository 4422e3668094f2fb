#include "speech/PageHush.h"

#include "platform/page_sound.h"

namespace corvane {
namespace {

constexpr int kMoment = 600;  // milliseconds
constexpr int kFull = 100;    // percent

}  // namespace

PageHush::PageHush(Desktop& desktop, const Manner& manner, const SpeechChoices& choices)
    : desktop_(desktop), pages_(desktop.GetPageSound()), manner_(manner), choices_(choices) {
  connections_ += desktop.Speaking.Connect([this](bool speaks) { Speaks(speaks); });
  pages_.HoldBackWhile([&manner] { return manner.hold_sound; });
}

void PageHush::MakeTimer() {
  silence_ = desktop_.CreateTimer();
  silence_->SetInterval(kMoment);
  connections_ += silence_->Tick.Connect([this] {
    silence_->SetEnabled(false);
    pages_.SetLevel(kFull);
  });
}

void PageHush::Speaks(bool speaks) {
  if (!silence_) MakeTimer();
  silence_->SetEnabled(false);
  if (!speaks) return silence_->SetEnabled(true);
  pages_.SetLevel(manner_.hold_sound ? choices_.page_level : kFull);
}

}  // namespace corvane
