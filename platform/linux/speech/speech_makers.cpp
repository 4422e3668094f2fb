#include "platform/linux/speech/speech_makers.h"

#include <utility>

#include "platform/linux/glib/later.h"
#include "platform/linux/speech/espeak_synthesizer.h"
#include "platform/linux/speech/installed_voices.h"
#include "platform/linux/speech/speech_dispatcher.h"

namespace corvane::desktop {

SpeechMakers::SpeechMakers(SpeechOutput& speech)
    : speech_(speech),
      connection_(
          speech.ServerIs.Connect([this](SpeechServer::State state) { DispatcherIs(state); })) {}

void SpeechMakers::SpeakThrough(SpeechMaker maker) {
  if (maker == std::exchange(asked_, maker)) return;
  in_use_ = SpeechMaker::BuiltIn;
  asked_for_voices_ = false;
  std::unique_ptr<SpeechServer> server;
  if (maker == SpeechMaker::SpeechDispatcher) {
    server = std::make_unique<SpeechDispatcher>(UsualDispatcherPlace());
  }
  speech_.SpeakThrough(std::move(server));
}

void SpeechMakers::DispatcherIs(SpeechServer::State state) {
  if (state == SpeechServer::State::kReady) {
    in_use_ = SpeechMaker::SpeechDispatcher;
  } else if (state == SpeechServer::State::kLost) {
    in_use_ = SpeechMaker::BuiltIn;
    Lost.Raise(SpeechMaker::SpeechDispatcher);
  }
}

// Its list may be long, and it must not keep anything from being said.
void SpeechMakers::AskForVoices() {
  OnWorker([this, lives = std::weak_ptr(lives_), socket = UsualDispatcherPlace().socket] {
    InstalledVoices voices = DispatcherVoices(socket);
    PostToLoop([this, lives, voices = std::move(voices)]() mutable {
      if (!lives.expired()) dispatchers_ = std::move(voices);
    });
  });
}

// The library's folder is known as soon as its thread has started it.
const InstalledVoices& SpeechMakers::Voices() {
  if (in_use_ == SpeechMaker::SpeechDispatcher) {
    if (!std::exchange(asked_for_voices_, true)) AskForVoices();
    if (!dispatchers_.voices.empty()) return dispatchers_;
  }
  if (own_.voices.empty()) own_ = ReadInstalledVoices(EspeakDataFolder());
  return own_;
}

}  // namespace corvane::desktop
