#pragma once

#include <functional>
#include <string>

#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "platform/linux/web/engine_settings.h"

namespace corvane::desktop {

/// The rendering engine's options as one spoken dialog: start page, search
/// service, zoom, least font size, pictures, scripts; and buttons that clear the
/// history, the cookies and the cache at once.
class EngineOptionsDialog {
 public:
  /// What the dialog works on.
  struct Engine {
    std::function<EngineChoices()> choices;
    std::function<void(const EngineChoices&)> apply;  ///< stores them, too
    std::function<void()> clear_history;
    std::function<void()> clear_cookies;
    std::function<void()> clear_cache;
  };

  EngineOptionsDialog(SpokenDialogs& dialogs, Engine engine);

  /// Shows it; without effect while it is shown.
  void Show();

 private:
  DialogQuestion Question(const EngineChoices& choices);
  std::string Check(const DialogAnswer& answer) const;
  void Answered(const DialogAnswer& answer);

  SpokenDialogs& dialogs_;
  const Engine engine_;
  bool shown_ = false;
};

}  // namespace corvane::desktop
