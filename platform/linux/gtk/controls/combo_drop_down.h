#pragma once

#include <gtkmm/combobox.h>

#include <string>

#include "platform/linux/gtk/controls/combo_box.h"

namespace corvane::desktop {

/// A field with a list that drops down: Alt+Down or F4 opens it, Up and Down
/// walk it while it is closed, from the entry that the field shows.
class DropDownCombo : public ComboBoxControl {
 public:
  DropDownCombo(const std::string& name, WindowTable& windows);
  ~DropDownCombo() override { showing_ = true; }  // what the widgets tell as they go is no news
  Gtk::Widget& widget() override { return combo_; }
  void SetText(const std::string& text) override;

 protected:
  Gtk::Entry& Field() override { return *combo_.get_entry(); }
  void ShowIndex(int index) override { combo_.set_active(index); }
  void ShowModel() override;

 private:
  bool Key(const GdkEventKey& event);

  Gtk::ComboBox combo_;
};

}  // namespace corvane::desktop
