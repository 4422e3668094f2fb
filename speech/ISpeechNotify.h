#pragma once

#include <string>

namespace corvane {

/// The one way to say something. An ordinary message cuts off what is being
/// spoken; an urgent one does too and is itself kept from being cut off by the
/// next two ordinary messages.
class ISpeechNotify {
 public:
  virtual ~ISpeechNotify() = default;
  void Say(const std::string& Text, const bool& blnUrgent) { ISpeechNotify_Say(Text, blnUrgent); }

 private:
  virtual void ISpeechNotify_Say(const std::string& Text, const bool& blnUrgent) = 0;
};

}  // namespace corvane
