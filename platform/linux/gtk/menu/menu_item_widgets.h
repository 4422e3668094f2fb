#pragma once

#include <gtkmm/checkmenuitem.h>
#include <gtkmm/menuitem.h>

namespace corvane::desktop {

/// A menu item that can say it is disabled and still be reached with the arrow
/// keys: GTK's own insensitive items are passed over and so are never heard. It
/// looks dim and its accessible object is neither enabled nor sensitive.
class PlainMenuItem : public Gtk::MenuItem {
 public:
  explicit PlainMenuItem(const Glib::ustring& mnemonic);
};

/// The same with a check mark, which only SetMark changes.
class MarkedMenuItem : public Gtk::CheckMenuItem {
 public:
  explicit MarkedMenuItem(const Glib::ustring& mnemonic);
  void SetMark(bool marked);
  /// Whether an activation is one of SetMark's own.
  bool Setting() const { return setting_; }

 protected:
  void on_activate() override;

 private:
  bool setting_ = false;
};

/// Shows one of the items above as disabled or enabled.
void ShowEnabled(Gtk::MenuItem& item, bool enabled);

}  // namespace corvane::desktop
