#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/gtk/window_table.h"
#include "platform/linux/web/requests/script_dialogs.h"

namespace corvane::desktop {

class AlertWindow;

/// Shows alerts of pages in windows that the program's activation hook can see,
/// read and close.
class PageAlerts : public ScriptDialogs {
 public:
  explicit PageAlerts(WindowTable& windows);
  ~PageAlerts() override;

  void ShowAlert(const std::string& text, std::function<void()> done) override;

 private:
  WindowTable& windows_;
  std::vector<std::unique_ptr<AlertWindow>> open_;
};

}  // namespace corvane::desktop
