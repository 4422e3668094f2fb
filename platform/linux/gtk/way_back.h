#pragma once

#include <gtkmm/window.h>

namespace corvane::desktop {

/// The window that the user is in; null when it is none of this program's.
Gtk::Window* ActiveWindow();

/// Whether the window still exists. It may be the pointer of one that is gone.
bool IsThere(Gtk::Window* window);

/// The way back from a dialog to where the user was. To the window behind a dialog
/// the window manager leads by itself; not to another one.
class WayBack {
 public:
  /// `dialog` is about to appear in front of `owner` (null: of nothing).
  void Remember(const Gtk::Window* dialog, const Gtk::Window* owner);
  /// The dialog has gone from the screen.
  void Go() const;

 private:
  const Gtk::Window* owner_ = nullptr;
  Gtk::Window* from_ = nullptr;  // may be gone
};

}  // namespace corvane::desktop
