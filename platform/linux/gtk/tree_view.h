#pragma once

#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include <string>

#include "platform/linux/gtk/tree_rows.h"
#include "platform/linux/gtk/widget_control.h"
#include "platform/tree_view.h"

namespace corvane::desktop {

/// A TreeView on Gtk::TreeView. Right opens a node or goes to its first child,
/// Left closes it or goes to its parent; a letter goes to the next node that
/// begins with it. NodeClick tells of what the user selects or clicks, not of
/// SetSelectedItem; DblClick of a double click with the pointer.
class TreeViewControl : public WidgetControl<TreeView> {
 public:
  TreeViewControl(const std::string& name, WindowTable& windows);
  ~TreeViewControl() override { showing_ = true; }  // what the widgets tell as they go is no news
  Gtk::Widget& widget() override { return scroll_; }

  TreeNode& Add(TreeNode* parent, const std::string& text) override;
  void Clear() override;
  TreeNode* SelectedItem() const override;
  void SetSelectedItem(TreeNode* node) override;

  /// The toolkit's view, for the rows to open and close themselves.
  Gtk::TreeView& View() { return view_; }

 private:
  bool Key(const GdkEventKey& event);
  bool GoTo(const Gtk::TreePath& path);
  bool FindLetter(gunichar letter);
  void Pressed(const GdkEventButton& event);

  Glib::RefPtr<TreeRows> rows_;
  Gtk::ScrolledWindow scroll_;
  Gtk::TreeView view_;
  bool showing_ = false;  // what the view tells now is our own doing
  guint32 last_press_ = 0;
};

}  // namespace corvane::desktop
