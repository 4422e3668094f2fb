#pragma once

#include <string>
#include <utility>

#include "base/handling.h"
#include "controls/ctlText.h"
#include "speech/ISpeechNotify.h"

namespace corvane {

inline constexpr const char* kLineBreak = "\r\n";

/// How the pane speaks: through the sink that its host gave it, and into the
/// text pane for those who read along.
class Announcer {
 public:
  Announcer(MessageBox& box, ctlText& pane) : box_(box), pane_(pane) {}

  void SetSpeechNotify(ISpeechNotify* sink) { sink_ = sink; }

  /// Speaks; silent while there is no sink.
  void Say(const std::string& text, bool urgent = false) {
    ErrorsShown(box_, "Say Error: ", [&] {
      if (sink_ != nullptr) sink_->Say(text, urgent);
    });
  }

  /// Speaks and tells what became of it, unless there is no sink.
  void SayThrough(const std::string& text, ISpeechNotify::Spoken spoken) {
    ErrorsShown(box_, "Say Error: ", [&] {
      if (sink_ != nullptr) sink_->SayThrough(text, std::move(spoken));
    });
  }

  /// Adds the text as a line to the text pane and speaks it.
  void AddAndSay(const std::string& text, bool urgent = false) {
    ErrorsIgnored([&] { pane_.AddText(text + kLineBreak, true); }, [&] { Say(text, urgent); });
  }

 private:
  MessageBox& box_;
  ctlText& pane_;
  ISpeechNotify* sink_ = nullptr;
};

}  // namespace corvane
