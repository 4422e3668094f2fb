#pragma once

#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treestore.h>
#include <gtkmm/treeview.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/gtk/widget_control.h"
#include "platform/tree_view.h"

namespace corvane::desktop {

class TreeViewControl;

/// A TreeNode in a row of a TreeViewControl.
class TreeRow : public TreeNode {
 public:
  TreeRow(TreeViewControl& tree, std::string text, Gtk::TreeIter row)
      : tree_(tree), text_(std::move(text)), row_(row) {}

  std::string Text() const override { return text_; }
  std::string Tag() const override { return tag_; }
  void SetTag(const std::string& tag) override { tag_ = tag; }
  std::size_t Children() const override { return children_.size(); }
  bool Expanded() const override;
  void SetExpanded(bool expanded) override;

 private:
  friend class TreeViewControl;
  TreeViewControl& tree_;
  std::string text_;
  std::string tag_;
  Gtk::TreeIter row_;  // stays valid: a tree store's rows do
  std::vector<std::unique_ptr<TreeRow>> children_;
};

/// A TreeView on Gtk::TreeView. Right opens a node or goes to its first child,
/// Left closes it or goes to its parent; a letter goes to the next node that
/// begins with it. NodeClick tells of what the user selects or clicks, not of
/// SetSelectedItem; DblClick of a double click with the pointer.
class TreeViewControl : public WidgetControl<TreeView> {
 public:
  TreeViewControl(const std::string& name, WindowTable& windows);
  Gtk::Widget& widget() override { return scroll_; }

  TreeNode& Add(TreeNode* parent, const std::string& text) override;
  void Clear() override;
  TreeNode* SelectedItem() const override;
  void SetSelectedItem(TreeNode* node) override;

 private:
  friend class TreeRow;
  TreeRow* RowAt(const Gtk::TreeIter& iter) const;
  Gtk::TreePath PathOf(const TreeRow& row) const { return store_->get_path(row.row_); }
  bool Key(const GdkEventKey& event);
  bool GoTo(const Gtk::TreePath& path);
  bool FindLetter(gunichar letter);
  void Pressed(const GdkEventButton& event);

  Glib::RefPtr<Gtk::TreeStore> store_;
  Gtk::ScrolledWindow scroll_;
  Gtk::TreeView view_;
  std::vector<std::unique_ptr<TreeRow>> roots_;
  bool showing_ = false;  // what the view tells now is our own doing
  guint32 last_press_ = 0;
};

}  // namespace corvane::desktop
