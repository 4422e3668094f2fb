#pragma once

#include <cstdint>
#include <string>

#include "platform/control.h"

namespace corvane {

/// The registry of this process's windows, hidden ones too, and below 0, the
/// desktop, of those windows of other programs that accessibility knows of. A
/// handle that is gone answers with empty values.
class Windows {
 public:
  virtual ~Windows() = default;

  /// The first top-level window of the program on the current thread, or 0.
  virtual WindowHandle FirstThreadWindow() const = 0;
  /// The id of the process that owns the window.
  virtual std::uint32_t ProcessId(WindowHandle window) const = 0;
  /// A top-level window with exactly this caption, or 0.
  virtual WindowHandle FindWindow(const std::string& caption) const = 0;
  virtual std::string Text(WindowHandle window) const = 0;
  virtual std::string ClassName(WindowHandle window) const = 0;
  virtual WindowHandle FirstChild(WindowHandle window) const = 0;
  virtual WindowHandle NextSibling(WindowHandle window) const = 0;
  /// The top-level window of the program that the user is in, a dialog too; 0 while
  /// there is none.
  virtual WindowHandle Active() const = 0;
  /// The window that a dialog or another top-level window stands in front of and
  /// belongs to, or 0.
  virtual WindowHandle Owner(WindowHandle window) const = 0;
  /// Moves a child window into another window.
  virtual void SetParent(WindowHandle child, WindowHandle parent) = 0;
  /// Asks the window to close, after the present event has been handled.
  virtual void PostClose(WindowHandle window) = 0;

  /// Style bits of a window and their change.
  virtual std::uint32_t Style(WindowHandle window) const = 0;
  virtual void SetStyle(WindowHandle window, std::uint32_t style) = 0;
  /// The window's height in pixels; 0 for a handle that is gone.
  virtual int PixelHeight(WindowHandle window) const = 0;
  /// Stops (true) and resumes (false) the window's repainting.
  virtual void LockUpdate(WindowHandle window, bool locked) = 0;
};

}  // namespace corvane
