#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/accessible.h"
#include "platform/linux/access/local_accessible.h"
#include "platform/linux/access/remote_accessible.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// The accessibility of a Linux desktop: the program's own windows through the
/// toolkit, pages and other programs over the accessibility bus.
class LinuxAccessibility : public Accessibility {
 public:
  explicit LinuxAccessibility(WindowTable& windows);
  ~LinuxAccessibility() override;

  Connection Fetch(const std::vector<WindowHandle>& windows, std::function<void()> done) override;
  AccessiblePtr ObjectFromWindow(WindowHandle window, std::int32_t id) override;
  AccessibleElement ObjectFromPoint(ScreenPoint point) override;
  ScreenPoint CursorPos() const override;
  ScreenPoint CaretPos() const override;
  std::string RoleText(int role) const override;

 private:
  class OwnFamily;
  struct Request;

  void Finish(const std::shared_ptr<Request>& request);

  WindowTable& windows_;
  std::map<WindowHandle, std::shared_ptr<const RemoteTree>> trees_;
  std::shared_ptr<LinuxAccessibility*> self_;  // what comes late finds it gone
  std::shared_ptr<OwnFamily> family_;
  std::shared_ptr<AccessBus> bus_;
};

}  // namespace corvane::desktop
