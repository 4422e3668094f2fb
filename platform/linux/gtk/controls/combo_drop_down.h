#pragma once

#include <gtkmm/combobox.h>
#include <gtkmm/treeview.h>

#include <memory>
#include <string>

#include "base/life.h"
#include "platform/linux/gtk/controls/combo_box.h"

namespace corvane::desktop {

/// A field with a list that drops down: Alt+Down or F4 opens it, Up and Down
/// walk it while it is closed, from the entry that the field shows. In the open list a
/// letter leads to the next entry that begins with it.
class DropDownCombo : public ComboBoxControl {
 public:
  DropDownCombo(const std::string& name, WindowTable& windows);
  ~DropDownCombo() override {
    showing_ = true;  // what the widgets tell as they go is no news
    life_.End();
  }
  Gtk::Widget& widget() override { return combo_; }
  void SetText(const std::string& text) override;

 protected:
  Gtk::Entry& Field() override { return *combo_.get_entry(); }
  void ShowIndex(int index) override { combo_.set_active(index); }
  void ShowModel() override;

 private:
  bool Key(const GdkEventKey& event);
  void ListShown();
  void ListHidden();
  void TellCursor();
  bool ListKey(const GdkEventKey& event);

  Gtk::ComboBox combo_;
  Gtk::TreeView* list_ = nullptr;  // the open list, once there was one
  int told_ = -1;                  // the entry that its cursor was told to be on
  bool chosen_ = false;            // from the open list
  Life life_;
};

}  // namespace corvane::desktop
