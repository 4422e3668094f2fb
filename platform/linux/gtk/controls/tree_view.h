#pragma once

#include <gtkmm/cellrendererpixbuf.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/life.h"
#include "platform/linux/gtk/controls/image_list.h"
#include "platform/linux/gtk/controls/tree_rows.h"
#include "platform/linux/gtk/widget_control.h"
#include "platform/tree_view.h"

namespace corvane::desktop {

/// Asks the user for a new label in the place of `label` and returns at once.
/// `done` gets the new one, or nothing when the user gives up.
using LabelPrompt = std::function<void(const std::string& label,
                                       std::function<void(std::optional<std::string>)> done)>;

/// A TreeView on Gtk::TreeView. Right opens a node or goes to its first child,
/// Left closes it or goes to its parent; a letter goes to the next node that
/// begins with it. NodeClick tells of what the user selects or clicks, not of
/// SetSelectedItem; DblClick of a double click with the pointer.
class TreeViewControl : public WidgetControl<TreeView> {
 public:
  /// `ask_label` asks for labels to be edited; without it none can be.
  TreeViewControl(const std::string& name, WindowTable& windows, LabelPrompt ask_label = nullptr);
  ~TreeViewControl() override;
  Gtk::Widget& widget() override { return scroll_; }

  using TreeView::Add;
  TreeNode& Add(TreeNode* parent, const std::string& text, int image, int selected_image) override;
  void Remove(TreeNode& node) override;
  void Clear() override;
  std::vector<TreeNode*> Nodes() const override { return rows_->All(); }
  TreeNode* Find(TreeNodeId id) const override { return rows_->Find(id); }
  TreeNode* SelectedItem() const override;
  void SetSelectedItem(TreeNode* node) override;
  void SetImageList(const ImageList* images) override;
  /// Labels are edited in a dialog and only when it is asked for, whatever the mode.
  void SetLabelEdit(LabelEdit) override {}
  void StartLabelEdit() override;
  /// Children are added while their node is closed, and a closed node's children
  /// are not drawn: there is nothing to hold back.
  void LockUpdate(bool) override {}

  // For the rows. Numbers are never used again, also when the tree was emptied.
  TreeNodeId NextId() { return ++last_id_; }
  bool IsOpen(const TreeRow& row) const;
  /// Asks for the row's children and opens it, if both still exist then.
  void Open(TreeRow& row);
  void Close(TreeRow& row);

 private:
  void Draw(Gtk::CellRendererPixbuf& cell, const Gtk::TreeIter& at) const;
  void ListenToView();
  void ToggleByUser(TreeRow& row);
  void Clicked(TreeNodeId id);
  void ToggledOutside(const Gtk::TreeIter& at, bool open);
  void Edited(const std::string& text);
  void Release(TreeNodeId id);
  bool Key(const GdkEventKey& event);
  bool GoTo(const TreeRow& row);
  bool FindLetter(gunichar letter);
  void Pressed(const GdkEventButton& event);

  Glib::RefPtr<TreeRows> rows_;
  Gtk::ScrolledWindow scroll_;
  Gtk::TreeView view_;
  const LabelPrompt ask_label_;
  const PixbufList* images_ = nullptr;
  bool showing_ = false;  // what the view tells now is our own doing
  guint32 last_press_ = 0;
  TreeNodeId edited_ = 0;
  TreeNodeId last_id_ = 0;
  Life life_;
};

}  // namespace corvane::desktop
