#pragma once

#include <vector>

#include "platform/linux/access/linux_accessibility.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// The windows of the desktop: those of this program and, below the desktop
/// itself, which is 0, those of other programs that accessibility knows of
/// (Accessibility::Fetch). The class of another program's window is the program's
/// name.
class DesktopWindows : public Windows {
 public:
  DesktopWindows(WindowTable& own, const LinuxAccessibility& accessibility)
      : own_(own), accessibility_(accessibility) {}

  std::uint32_t ProcessId(WindowHandle window) const override;
  std::string Text(WindowHandle window) const override;
  std::string ClassName(WindowHandle window) const override;
  WindowHandle FirstChild(WindowHandle window) const override;
  WindowHandle NextSibling(WindowHandle window) const override;
  int PixelHeight(WindowHandle window) const override;

  WindowHandle FirstThreadWindow() const override { return own_.FirstThreadWindow(); }
  WindowHandle FindWindow(const std::string& caption) const override {
    return own_.FindWindow(caption);
  }
  WindowHandle Active() const override { return own_.Active(); }
  WindowHandle Owner(WindowHandle window) const override { return own_.Owner(window); }
  void SetParent(WindowHandle child, WindowHandle parent) override {
    own_.SetParent(child, parent);
  }
  void PostClose(WindowHandle window) override { own_.PostClose(window); }
  std::uint32_t Style(WindowHandle window) const override { return own_.Style(window); }
  void SetStyle(WindowHandle window, std::uint32_t style) override { own_.SetStyle(window, style); }
  void LockUpdate(WindowHandle window, bool locked) override { own_.LockUpdate(window, locked); }

 private:
  std::vector<WindowHandle> TopLevels() const;

  WindowTable& own_;
  const LinuxAccessibility& accessibility_;
};

}  // namespace corvane::desktop
