#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/web/script_dialogs.h"

namespace corvane::desktop {

/// Hands a page's dialogs to the ScriptDialogs. A page that shows alert after
/// alert cannot hold the user: after a few in a short time the rest of that
/// page's alerts do not appear.
class PageDialogs {
 public:
  /// `open` is told whether a dialog holds the page now; `notice` gets a text for
  /// the status bar.
  PageDialogs(std::shared_ptr<ScriptDialogs> dialogs, std::function<void(bool)> open,
              std::function<void(const std::string&)> notice);

  /// Another page is shown: its alerts count anew.
  void Reset();
  void Show(WebKitScriptDialog* dialog);

 private:
  void ShowAlert(WebKitScriptDialog* dialog);
  /// Whether the page may show one more alert now.
  bool MayAlert();
  class Held;
  std::shared_ptr<Held> Hold(WebKitScriptDialog* dialog);
  void Closed();

  std::shared_ptr<ScriptDialogs> dialogs_;
  std::function<void(bool)> open_;
  std::function<void(const std::string&)> notice_;
  std::shared_ptr<PageDialogs*> self_;  // dialogs closed later find the object gone
  int open_count_ = 0;
  int alerts_ = 0;
  gint64 first_alert_ = 0;  // microseconds
  bool muted_ = false;
};

}  // namespace corvane::desktop
