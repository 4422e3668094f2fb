#pragma once

#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include <string>

#include "platform/linux/gtk/controls/line_list.h"
#include "platform/linux/gtk/widget_control.h"
#include "platform/list_box.h"

namespace corvane::desktop {

/// A ListBox on a Gtk::TreeView. Once moved it floats in its frame; out of
/// sight it is not mapped, costs nothing to lay out and takes no focus, but its
/// lines and selection stay.
class ListBoxControl : public WidgetControl<ListBox> {
 public:
  ListBoxControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return scroll_; }

  int ListCount() const override { return lines_.Count(); }
  std::string List(int index) const override { return lines_.At(index); }
  void AddItem(const std::string& text) override { lines_.Append(text); }
  void Clear() override;
  int ListIndex() const override;
  void SetListIndex(int index) override;
  void Move(float left, float top) override;

 private:
  LineList lines_;
  Gtk::ScrolledWindow scroll_;
  Gtk::TreeView view_;
};

}  // namespace corvane::desktop
