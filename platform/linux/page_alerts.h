#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/gtk/dialogs/speaker.h"
#include "platform/linux/gtk/window_table.h"
#include "platform/script_dialogs.h"

namespace corvane::desktop {

class AlertWindow;

/// Shows alerts of pages in windows that the program's activation hook can see,
/// read and close.
class PageAlerts : public ScriptDialogs {
 public:
  /// `speak` says what nobody has closed before it was on the screen.
  PageAlerts(WindowTable& windows, Speaker speak);
  ~PageAlerts() override;

  void ShowAlert(void* page, const std::string& text, std::function<void()> done) override;

 private:
  WindowTable& windows_;
  const Speaker speak_;
  std::vector<std::unique_ptr<AlertWindow>> open_;
};

}  // namespace corvane::desktop
