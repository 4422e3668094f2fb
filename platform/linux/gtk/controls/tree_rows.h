#pragma once

#include <gtkmm/treemodel.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/tree_view.h"

namespace corvane::desktop {

class TreeViewControl;
class TreeRows;

/// A TreeNode in a row of a TreeViewControl.
class TreeRow : public TreeNode {
 public:
  /// The indexes of a row's pictures, 0 for none.
  struct Images {
    int usual = 0;
    int selected = 0;
  };
  TreeRow(TreeViewControl& tree, TreeRow* parent, int index, const std::string& text,
          Images images);

  TreeNodeId Id() const override { return id_; }
  std::string Text() const override { return text_; }
  std::string Tag() const override { return tag_; }
  void SetTag(const std::string& tag) override { tag_ = tag; }
  TreeNode* Parent() const override { return parent_; }
  std::size_t Children() const override { return children_.size(); }
  TreeRow& Child(std::size_t index) const override { return *children_[index]; }
  bool Expanded() const override;
  void SetExpanded(bool expanded) override;

  TreeRow* Above() const { return parent_; }
  Images Pictures() const { return images_; }
  Gtk::TreePath Path() const;

 private:
  friend class TreeRows;
  TreeViewControl& tree_;
  TreeNodeId id_;
  TreeRow* parent_;
  int index_;  // among its siblings
  std::string text_;
  Glib::ustring shown_;
  std::string tag_;
  Images images_;
  std::vector<std::unique_ptr<TreeRow>> children_;
  std::size_t held_back_ = 0;  // children at the end that the view does not see yet
};

/// The rows of a tree as a model with one column, their text. Every row knows
/// its place, so that adding one takes the same time however many there are:
/// the toolkit's own store counts all siblings each time. (The interface comes
/// first among the bases: the toolkit must know of it when the type is made.)
class TreeRows : public Gtk::TreeModel, public Glib::Object {
 public:
  static Glib::RefPtr<TreeRows> Create();

  TreeRow& Add(TreeViewControl& tree, TreeRow* parent, const std::string& text,
               TreeRow::Images images);
  void Remove(TreeRow& row);
  void SetText(TreeRow& row, const std::string& text);
  /// Takes the last `count` rows away, of a model that no view has; false when none
  /// is left.
  bool Drop(std::size_t count);
  /// Lets the view see no more than the first `most` children of a row that is
  /// closed: to open a row with very many at once would hold everything up.
  void HoldBack(TreeRow& row, std::size_t most);
  /// Lets the view see `count` more of them; false when it sees all.
  bool Release(TreeRow& row, std::size_t count);
  /// Lets the view see all siblings of a row and of those above it.
  void ReleaseUpTo(const TreeRow& row);
  TreeRow* Find(TreeNodeId id) const;
  /// All rows, the one added first in front.
  std::vector<TreeNode*> All() const;
  const std::vector<std::unique_ptr<TreeRow>>& Roots() const { return roots_; }
  static TreeRow* RowAt(const Gtk::TreeIter& iter);

 protected:
  TreeRows();
  Gtk::TreeModelFlags get_flags_vfunc() const override;
  int get_n_columns_vfunc() const override { return 1; }
  GType get_column_type_vfunc(int index) const override;
  bool iter_next_vfunc(const iterator& iter, iterator& next) const override;
  bool get_iter_vfunc(const Path& path, iterator& iter) const override;
  bool iter_children_vfunc(const iterator& parent, iterator& iter) const override;
  bool iter_parent_vfunc(const iterator& child, iterator& iter) const override;
  bool iter_nth_child_vfunc(const iterator& parent, int n, iterator& iter) const override;
  bool iter_nth_root_child_vfunc(int n, iterator& iter) const override;
  bool iter_has_child_vfunc(const iterator& iter) const override;
  int iter_n_children_vfunc(const iterator& iter) const override;
  int iter_n_root_children_vfunc() const override;
  Path get_path_vfunc(const iterator& iter) const override;
  void get_value_vfunc(const iterator& iter, int column, Glib::ValueBase& value) const override;

 private:
  const std::vector<std::unique_ptr<TreeRow>>& Siblings(const TreeRow* parent) const {
    return parent ? parent->children_ : roots_;
  }
  /// How many children the view sees.
  std::size_t Seen(const TreeRow* parent) const {
    return Siblings(parent).size() - (parent ? parent->held_back_ : 0);
  }
  bool IsSeen(const TreeRow& row) const {
    return static_cast<std::size_t>(row.index_) < Seen(row.parent_);
  }
  static bool Set(iterator& iter, TreeRow* row);
  void Tell(TreeRow& row, void (*what)(GtkTreeModel*, GtkTreePath*, GtkTreeIter*));
  void Forget(const TreeRow& row);

  std::vector<std::unique_ptr<TreeRow>> roots_;
  std::unordered_map<TreeNodeId, TreeRow*> by_id_;
};

}  // namespace corvane::desktop
