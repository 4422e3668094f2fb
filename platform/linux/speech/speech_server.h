#pragma once

#include <functional>
#include <string>

#include "platform/linux/speech/synthesizer.h"

namespace corvane::desktop {

/// Speaks by itself, with a sound of its own, beside the program. Used on the thread that
/// speaks; only Wake may be called on any.
class SpeechServer {
 public:
  /// How far it is.
  enum class State {
    kReady,     ///< it speaks
    kStarting,  ///< it may be there soon: to be asked again
    kLost,      ///< it is not there, or does not answer; for good
  };
  enum class Outcome { kSpoken, kCut, kLost };
  struct Result {
    Outcome outcome = Outcome::kLost;
    std::string rest = {};  ///< what has not been said when it was lost
  };

  virtual ~SpeechServer() = default;
  /// Finds out whether it can speak, in less than a second.
  virtual State Prepare() = 0;
  /// Speaks a text and returns when it is over, or when the server has been lost; that it
  /// is gone or does not answer is known within a second. `begun` is called at its first sound;
  /// `cut` is asked after each Wake, and silences it.
  virtual Result Speak(const std::string& text, const VoiceStyle& style,
                       const std::function<void()>& begun, const std::function<bool()>& cut) = 0;
  /// What `cut` says may have changed.
  virtual void Wake() = 0;
};

}  // namespace corvane::desktop
