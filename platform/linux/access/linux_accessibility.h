#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/life.h"
#include "platform/accessible.h"
#include "platform/linux/access/focus_reader.h"
#include "platform/linux/access/local_accessible.h"
#include "platform/linux/access/other_windows.h"
#include "platform/linux/access/remote_accessible.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// The accessibility of a Linux desktop: the program's own windows through the
/// toolkit, pages and other programs over the accessibility bus.
class LinuxAccessibility : public Accessibility {
 public:
  explicit LinuxAccessibility(WindowTable& windows);
  ~LinuxAccessibility() override;

  Connection Fetch(const std::vector<WindowHandle>& windows, Depth depth,
                   std::function<void()> done) override;
  Connection FetchChildren(
      const AccessiblePtr& parent, int from, int most,
      std::function<void(const std::vector<AccessibleElement>&)> done) override;
  AccessiblePtr ObjectFromWindow(WindowHandle window, std::int32_t id) override;
  AccessibleElement ObjectFromPoint(ScreenPoint point) override;
  ScreenPoint CursorPos() const override;
  ScreenPoint CaretPos() const override;
  std::string RoleText(int role) const override;

  /// Reads what has the focus in the page that a view shows, without keeping the caller
  /// waiting.
  void ReadFocus(GtkWidget* view, std::function<void(const FieldFocus&)> seen);

  /// The windows of other programs as they were when the desktop was last fetched
  /// or looked at.
  const OtherWindows& Others() const { return others_; }

 private:
  class OwnFamily;
  struct Request;

  void Finish(const std::shared_ptr<Request>& request);
  void Keep(const std::vector<OtherWindow>& present);
  std::shared_ptr<const RemoteTree> TreeOf(WindowHandle window);
  AccessibleElement OwnAt(GtkWidget* top, ScreenPoint point);
  AccessibleElement OtherAt(const std::optional<StackedWindow>& top, ScreenPoint point);

  WindowTable& windows_;
  OtherWindows others_;
  std::map<WindowHandle, std::shared_ptr<const RemoteTree>> trees_;
  Life life_;  // what comes late finds it gone
  std::shared_ptr<OwnFamily> family_;
  std::shared_ptr<AccessBus> bus_;
};

}  // namespace corvane::desktop
