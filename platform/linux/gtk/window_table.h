#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "base/life.h"
#include "platform/windows.h"

namespace Gtk {
class Widget;
}
extern "C" {
typedef struct _GtkWidget GtkWidget;
typedef struct _GtkWindow GtkWindow;
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
    /// As Windows::Owner. Empty: the window that the toolkit has it in front of.
    std::function<WindowHandle()> owner = nullptr;
    /// A control: no top-level window, not even while it has no parent.
    bool child = false;
    /// Takes a child's widget into this window's own widget. Without it a child
    /// that SetParent moves here is entered as a child but not shown.
    std::function<void(Gtk::Widget&)> accept;
  };

  WindowTable();
  ~WindowTable() override;
  WindowTable(const WindowTable&) = delete;
  WindowTable& operator=(const WindowTable&) = delete;

  /// Enters a window; children are ordered by when they joined their parent.
  /// Never returns 0.
  WindowHandle Add(Entry entry);
  /// The window is gone; its children stay, without a parent.
  void Remove(WindowHandle window);
  /// Enters a child under a parent without moving its widget: for containers
  /// that have placed the widget themselves.
  void Place(WindowHandle child, WindowHandle parent);
  /// Sets how a window takes the widgets of its children (Entry::accept).
  void SetAccept(WindowHandle window, std::function<void(Gtk::Widget&)> accept);
  WindowHandle Parent(WindowHandle window) const;
  Gtk::Widget* WidgetOf(WindowHandle window) const;
  /// The innermost window whose widget contains the given one, or 0.
  WindowHandle WindowAround(const GtkWidget* widget) const;

  /// The nearest window of the table that a window of the toolkit's is, or stands in
  /// front of, or 0.
  WindowHandle WindowOf(GtkWindow* window) const;

  WindowHandle FirstThreadWindow() const override;
  std::uint32_t ProcessId(WindowHandle window) const override;
  WindowHandle FindWindow(const std::string& caption) const override;
  std::string Text(WindowHandle window) const override;
  std::string ClassName(WindowHandle window) const override;
  WindowHandle FirstChild(WindowHandle window) const override;
  WindowHandle NextSibling(WindowHandle window) const override;
  WindowHandle Active() const override;
  WindowHandle Owner(WindowHandle window) const override;
  void SetParent(WindowHandle child, WindowHandle parent) override;
  void PostClose(WindowHandle window) override;
  std::uint32_t Style(WindowHandle window) const override;
  void SetStyle(WindowHandle window, std::uint32_t style) override;
  int PixelHeight(WindowHandle window) const override;
  void LockUpdate(WindowHandle window, bool locked) override;

  /// Raised by whoever shows a top-level window when it becomes active; the
  /// activation hooks listen.
  Event<WindowHandle> WindowActivated;
  /// How many top-level windows there are, hidden ones too.
  int TopLevelCount() const;
  /// A top-level window has left the table.
  Event<> TopLevelGone;

 private:
  struct Window {
    Entry entry;
    std::uint32_t style = 0;
    std::uint64_t joined = 0;  ///< rises with every change of parent
    std::shared_ptr<void> frozen;
  };
  const Window* Find(WindowHandle window) const;
  static bool IsTopLevel(const Window& window);
  WindowHandle FirstChildAfter(WindowHandle parent, std::uint64_t joined) const;

  std::map<WindowHandle, Window> windows_;  // handles rise: order of entry
  WindowHandle last_ = 0;
  std::uint64_t joins_ = 0;
  Life life_;  // lets a posted request see that the table is gone
};

}  // namespace corvane::desktop
