#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "platform/linux/speech/speech_server.h"
#include "platform/linux/speech/ssip_connection.h"
#include "platform/voice.h"

namespace corvane::desktop {

/// Where Speech Dispatcher is found, and what starts it.
struct DispatcherPlace {
  std::string socket;
  std::string command;  ///< empty: it is not started
};

/// As the user's session has it: variables SPEECHD_ADDRESS and SPEECHD_CMD, else the usual
/// place.
DispatcherPlace UsualDispatcherPlace();

/// The voices that it has; none when it does not answer. Takes up to three seconds,
/// in which it may say nothing new, so on a thread of its own and not without need.
InstalledVoices DispatcherVoices(const std::string& socket);

/// Speech Dispatcher, over its socket. It tells with each word that it comes to it; one
/// that goes, hangs or leaves a word out too long is lost.
class SpeechDispatcher : public SpeechServer {
 public:
  explicit SpeechDispatcher(DispatcherPlace place);

  State Prepare() override;
  Result Speak(const std::string& text, const VoiceStyle& style, const std::function<void()>& begun,
               const std::function<bool()>& cut) override;
  void Wake() override;

 private:
  using Clock = SsipConnection::Clock;
  struct Message;

  State Start();
  bool Introduce();
  bool Set(const VoiceStyle& style, const std::string& text);
  std::optional<int> Queue(const std::string& text);
  Outcome SpeakPiece(Message& message, const std::function<bool()>& cut);
  void Follow(Message& message, const SsipConnection::Event& event);
  Clock::duration Patience(const Message& message) const;
  bool IsAlive();
  bool Cancel();

  DispatcherPlace place_;
  Descriptor wake_;
  std::unique_ptr<SsipConnection> server_;
  std::map<std::string, std::string> set_;  // as the server has it
  std::optional<Clock::time_point> started_;
  bool tells_words_ = false;  // it has told of a word
};

}  // namespace corvane::desktop
