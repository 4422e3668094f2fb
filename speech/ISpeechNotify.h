#pragma once

#include <functional>
#include <string>
#include <utility>

#include "speech/SpeechStyle.h"

namespace corvane {

/// The one way to say something. An ordinary message cuts off what is being
/// spoken; an urgent one does too and is itself kept from being cut off by the
/// next two ordinary messages.
class ISpeechNotify {
 public:
  /// Told once: whether a text was spoken to its end and nothing else was said
  /// meanwhile; false as soon as it is cut off or dropped, or something else is said.
  using Spoken = std::function<void(bool to_its_end)>;

  virtual ~ISpeechNotify() = default;
  void Say(const std::string& Text, const bool& blnUrgent) { ISpeechNotify_Say(Text, blnUrgent); }
  /// Says an ordinary message and tells what became of it.
  void SayThrough(const std::string& Text, Spoken spoken) {
    ISpeechNotify_SayThrough(Text, std::move(spoken));
  }

  /// Says it behind what is being said, without cutting that off, and tells what became
  /// of it.
  void SayBehind(const std::string& Text, Spoken spoken) {
    ISpeechNotify_SayBehind(Text, std::move(spoken));
  }

  /// Says an ordinary message that is `whose`, or by a sound where the user wants those.
  void SayAs(const std::string& Text, Whose whose, Sign sign) {
    ISpeechNotify_SayAs(Text, whose, sign);
  }

 private:
  virtual void ISpeechNotify_Say(const std::string& Text, const bool& blnUrgent) = 0;
  virtual void ISpeechNotify_SayThrough(const std::string& Text, Spoken spoken) = 0;
  virtual void ISpeechNotify_SayBehind(const std::string& Text, Spoken spoken) = 0;
  virtual void ISpeechNotify_SayAs(const std::string& Text, Whose whose, Sign sign) = 0;
};

}  // namespace corvane
