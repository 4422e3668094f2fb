#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/accessible.h"
#include "platform/linux/access/element.h"

namespace corvane::desktop {

/// A window of another program, as it told of itself on the accessibility bus.
struct OtherWindow {
  Element element;  ///< the window's own; its name is the title
  std::string program;
  std::uint32_t process = 0;  ///< 0 when it is not known
  ScreenRect place;
  bool active = false;
};

/// What the display says of the window that lies uppermost at a point.
struct StackedWindow {
  std::uint32_t process = 0;  ///< 0 when it is not known
  std::string title;
  ScreenRect place;
};

/// The window that the display's one is: of the same process, with the same
/// title, at most the same place. Without what the display knows, the window at
/// the point, the active one first. Null for none.
const OtherWindow* WindowAt(const std::vector<OtherWindow>& windows,
                            const std::optional<StackedWindow>& top, ScreenPoint point);

/// The windows of other programs that are known. A window keeps its handle as
/// long as it is there; handles are none of the program's own windows'.
class OtherWindows {
 public:
  /// These are the windows now.
  void Update(const std::vector<OtherWindow>& present);
  /// Null for a handle that is none of theirs.
  const OtherWindow* Find(WindowHandle window) const;
  WindowHandle HandleOf(const ElementRef& ref) const;
  /// In the order in which they became known.
  std::vector<WindowHandle> Handles() const;
  std::vector<OtherWindow> All() const;

 private:
  static constexpr WindowHandle kFirst = WindowHandle{1} << 48;
  std::map<WindowHandle, OtherWindow> windows_;
  WindowHandle last_ = kFirst;
};

}  // namespace corvane::desktop
