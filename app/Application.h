#pragma once

#include <memory>
#include <string>

#include "app/Multithread.h"

namespace corvane {

/// The automation class: opens one browser window, closes it and makes it
/// speak. Letting go of it leaves its window open.
class Application {
 public:
  explicit Application(Multithread& process) : process_(process) {}

  /// Opens a window that shares the given speech service and shows `address`; an
  /// empty one means the start page.
  void StartBrowser(const std::shared_ptr<MainApp>& service, const std::string& address = "");
  /// Unloads the window; without one, and the second time, does nothing.
  void KillBrowser();
  /// Speaks through the window's service.
  void Say(const std::string& Text, const bool& blnInterrupt);

 private:
  Multithread& process_;
  std::shared_ptr<frmCorvane> window_;
};

}  // namespace corvane
