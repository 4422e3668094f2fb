#include "speech/SpeechWindows.h"

#include <algorithm>

#include "base/handling.h"
#include "speech/StoredChoice.h"

namespace corvane {
namespace {

// A window that is just going has no item and no handle any more.
bool IsOn(ISpeechWindow& window) {
  bool on = false;
  ErrorsIgnored([&] { on = window.EnableSpeechItem().Checked(); });
  return on;
}

WindowHandle HandleOf(ISpeechWindow& window) {
  WindowHandle handle = 0;
  ErrorsIgnored([&] { handle = window.Window().hwnd(); });
  return handle;
}

}  // namespace

std::shared_ptr<ISpeechWindow> SpeechWindows::Around(WindowHandle window) const {
  const auto all = all_();
  for (; window != 0; window = desktop_.GetWindows().Owner(window)) {
    const auto found = std::find_if(
        all.begin(), all.end(), [window](const auto& each) { return HandleOf(*each) == window; });
    if (found != all.end()) return *found;
  }
  return nullptr;
}

bool SpeechWindows::Speaks(WindowHandle window) const {
  if (const auto around = Around(window)) return IsOn(*around);
  return StoredChoice(desktop_.GetSettings(), "Speech", "False") == "True";
}

bool SpeechWindows::UserIsInASilentOne() const {
  const auto around = Around(desktop_.GetWindows().Active());
  return around && !IsOn(*around);
}

bool SpeechWindows::UsersAnswersKey(int key_code) const {
  const auto around = Around(desktop_.GetWindows().Active());
  bool answers = false;
  if (around) ErrorsIgnored([&] { answers = around->AnswersKey(key_code); });
  return answers;
}

void SpeechWindows::SpeechReady(bool tell_where) const {
  const auto active = Around(desktop_.GetWindows().Active());
  if (active && IsOn(*active)) return active->SpeechReady(tell_where);
  const auto all = all_();
  const auto heard =
      std::find_if(all.begin(), all.end(), [](const auto& each) { return IsOn(*each); });
  if (heard != all.end()) (*heard)->SpeechReady(tell_where);
}

}  // namespace corvane
