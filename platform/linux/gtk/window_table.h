#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/windows.h"

namespace Gtk {
class Widget;
}

namespace corvane::desktop {

/// The registry behind Windows: every top-level window, control and alert of the
/// process is entered here while it lives. One table a process.
class WindowTable : public Windows {
 public:
  /// How an entry answers. Anything left empty answers with an empty value.
  struct Entry {
    std::string class_name;
    WindowHandle parent = 0;  ///< 0 for a top-level window
    std::function<std::string()> text;
    std::function<void()> close;
    Gtk::Widget* widget = nullptr;
  };

  /// Enters a window; children are ordered by entry. Never returns 0.
  WindowHandle Add(Entry entry);
  void Remove(WindowHandle window);
  Gtk::Widget* WidgetOf(WindowHandle window) const;

  WindowHandle FirstThreadWindow() const override;
  std::uint32_t ProcessId(WindowHandle window) const override;
  WindowHandle FindWindow(const std::string& caption) const override;
  std::string Text(WindowHandle window) const override;
  std::string ClassName(WindowHandle window) const override;
  WindowHandle FirstChild(WindowHandle window) const override;
  WindowHandle NextSibling(WindowHandle window) const override;
  void SetParent(WindowHandle child, WindowHandle parent) override;
  void PostClose(WindowHandle window) override;
  std::uint32_t Style(WindowHandle window) const override;
  void SetStyle(WindowHandle window, std::uint32_t style) override;
  int PixelHeight(WindowHandle window) const override;
  void LockUpdate(WindowHandle window, bool locked) override;

  /// Raised by whoever shows a top-level window when it becomes active; the
  /// activation hooks listen.
  Event<WindowHandle> WindowActivated;

 private:
  struct Window {
    Entry entry;
    std::uint32_t style = 0;
  };
  std::map<WindowHandle, Window> windows_;  // handles rise: order of entry
  WindowHandle last_ = 0;
};

}  // namespace corvane::desktop
