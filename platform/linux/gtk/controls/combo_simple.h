#pragma once

#include <gtkmm/box.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include <string>

#include "platform/linux/gtk/controls/combo_box.h"

namespace corvane::desktop {

/// A field over a list that is always visible. The field alone takes the focus:
/// Up, Down, Page Up and Page Down in it walk the list, a letter leads to the next line
/// that begins with it; the other keys move the caret in the line. A double click on a
/// line raises DblClick.
class SimpleCombo : public ComboBoxControl {
 public:
  SimpleCombo(const std::string& name, WindowTable& windows);
  ~SimpleCombo() override { showing_ = true; }  // what the widgets tell as they go is no news
  Gtk::Widget& widget() override { return box_; }

 protected:
  Gtk::Entry& Field() override { return field_; }
  void ShowIndex(int index) override;
  void ShowModel() override { list_.set_model(lines_.Model()); }

 private:
  bool Key(const GdkEventKey& event);
  int PageSize();
  void FindLetter(gunichar letter);

  Gtk::Box box_;
  Gtk::Entry field_;
  Gtk::ScrolledWindow scroll_;
  Gtk::TreeView list_;
};

}  // namespace corvane::desktop
