#include "platform/linux/gtk/tree_rows.h"

#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/tree_view.h"

namespace corvane::desktop {
namespace {

constexpr int kStamp = 1;  // marks iterators that mean a row

}  // namespace

TreeRow::TreeRow(TreeViewControl& tree, TreeRow* parent, int index, const std::string& text)
    : tree_(tree), parent_(parent), index_(index), text_(text), shown_(Valid(OnOneLine(text))) {}

Gtk::TreePath TreeRow::Path() const {
  Gtk::TreePath path;
  for (const auto* row = this; row; row = row->parent_) path.push_front(row->index_);
  return path;
}

bool TreeRow::Expanded() const { return tree_.View().row_expanded(Path()); }

void TreeRow::SetExpanded(bool expanded) {
  const auto path = Path();
  if (!expanded) {
    tree_.View().collapse_row(path);
    return;
  }
  tree_.View().expand_to_path(path);  // so that the row itself is one that can be opened
  tree_.View().expand_row(path, false);
}

TreeRows::TreeRows() : Glib::ObjectBase(typeid(TreeRows)), Glib::Object() {}

Glib::RefPtr<TreeRows> TreeRows::Create() { return Glib::RefPtr<TreeRows>(new TreeRows()); }

TreeRow& TreeRows::Add(TreeViewControl& tree, TreeRow* parent, const std::string& text) {
  auto& siblings = parent ? parent->children_ : roots_;
  siblings.push_back(
      std::make_unique<TreeRow>(tree, parent, static_cast<int>(siblings.size()), text));
  auto& row = *siblings.back();
  auto* model = GTK_TREE_MODEL(Glib::Object::gobj());
  GtkTreeIter iter{kStamp, &row, nullptr, nullptr};
  auto path = row.Path();
  gtk_tree_model_row_inserted(model, path.gobj(), &iter);
  if (parent && siblings.size() == 1) {
    iter.user_data = parent;
    path.up();
    gtk_tree_model_row_has_child_toggled(model, path.gobj(), &iter);
  }
  return row;
}

TreeRow* TreeRows::RowAt(const Gtk::TreeIter& iter) {
  return iter.gobj()->stamp == kStamp ? static_cast<TreeRow*>(iter.gobj()->user_data) : nullptr;
}

bool TreeRows::Set(iterator& iter, TreeRow* row) {
  iter.gobj()->stamp = row ? kStamp : 0;
  iter.gobj()->user_data = row;
  return row != nullptr;
}

Gtk::TreeModelFlags TreeRows::get_flags_vfunc() const { return Gtk::TREE_MODEL_ITERS_PERSIST; }

GType TreeRows::get_column_type_vfunc(int) const { return G_TYPE_STRING; }

bool TreeRows::iter_nth_root_child_vfunc(int n, iterator& iter) const {
  const bool there = n >= 0 && n < static_cast<int>(roots_.size());
  return Set(iter, there ? roots_[static_cast<std::size_t>(n)].get() : nullptr);
}

bool TreeRows::iter_nth_child_vfunc(const iterator& parent, int n, iterator& iter) const {
  const auto& children = Siblings(RowAt(parent));
  const bool there = n >= 0 && n < static_cast<int>(children.size());
  return Set(iter, there ? children[static_cast<std::size_t>(n)].get() : nullptr);
}

bool TreeRows::iter_children_vfunc(const iterator& parent, iterator& iter) const {
  return iter_nth_child_vfunc(parent, 0, iter);
}

bool TreeRows::iter_next_vfunc(const iterator& iter, iterator& next) const {
  const auto* row = RowAt(iter);
  if (!row) return Set(next, nullptr);
  const auto& siblings = Siblings(row->parent_);
  const auto index = static_cast<std::size_t>(row->index_) + 1;
  return Set(next, index < siblings.size() ? siblings[index].get() : nullptr);
}

bool TreeRows::iter_parent_vfunc(const iterator& child, iterator& iter) const {
  const auto* row = RowAt(child);
  return Set(iter, row ? row->parent_ : nullptr);
}

bool TreeRows::get_iter_vfunc(const Path& path, iterator& iter) const {
  TreeRow* row = nullptr;
  for (const int index : path) {
    const auto& siblings = Siblings(row);
    if (index < 0 || index >= static_cast<int>(siblings.size())) return Set(iter, nullptr);
    row = siblings[static_cast<std::size_t>(index)].get();
  }
  return Set(iter, row);
}

bool TreeRows::iter_has_child_vfunc(const iterator& iter) const {
  return iter_n_children_vfunc(iter) > 0;
}

int TreeRows::iter_n_children_vfunc(const iterator& iter) const {
  const auto* row = RowAt(iter);
  return row ? static_cast<int>(row->children_.size()) : 0;
}

int TreeRows::iter_n_root_children_vfunc() const { return static_cast<int>(roots_.size()); }

TreeRows::Path TreeRows::get_path_vfunc(const iterator& iter) const {
  const auto* row = RowAt(iter);
  return row ? row->Path() : Path();
}

void TreeRows::get_value_vfunc(const iterator& iter, int, Glib::ValueBase& value) const {
  value.init(G_TYPE_STRING);
  const auto* row = RowAt(iter);
  g_value_set_string(value.gobj(), row ? row->shown_.c_str() : "");
}

}  // namespace corvane::desktop
