#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "speech/ISpeechWindow.h"

namespace corvane {

/// The browser windows as speech looks them up: whose words are heard is each
/// one's own choice, its "Enable Speech" item.
class SpeechWindows {
 public:
  /// The windows that are loaded.
  using All = std::function<std::vector<std::shared_ptr<ISpeechWindow>>()>;

  SpeechWindows(Desktop& desktop, All all) : desktop_(desktop), all_(std::move(all)) {}

  /// The browser window that a window of the desktop is, or belongs to; null when
  /// there is none.
  std::shared_ptr<ISpeechWindow> Around(WindowHandle window) const;
  /// Whether that window, or a dialog that belongs to it, is heard. Of what belongs
  /// to no browser window the stored choice tells.
  bool Speaks(WindowHandle window) const;
  /// Whether the user is in a browser window whose speech is off.
  bool UserIsInASilentOne() const;
  /// Whether the browser window that the user is in answers the key; see ISpeechWindow.
  bool UsersAnswersKey(int key_code) const;
  /// Tells the window that the user hears now that the character can speak: of
  /// several, the one that he is in. `tell_where` as for a window.
  void SpeechReady(bool tell_where) const;

 private:
  Desktop& desktop_;
  All all_;
};

}  // namespace corvane
