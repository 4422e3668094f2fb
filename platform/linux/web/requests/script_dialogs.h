#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>

namespace corvane::desktop {

/// Shows the alerts of page scripts. The page waits until `done` is called,
/// which may be at once or later; calling it after the page has gone does
/// nothing.
class ScriptDialogs {
 public:
  virtual ~ScriptDialogs() = default;
  /// `page`: the view of the page.
  virtual void ShowAlert(GtkWidget* page, const std::string& text, std::function<void()> done) = 0;
};

}  // namespace corvane::desktop
