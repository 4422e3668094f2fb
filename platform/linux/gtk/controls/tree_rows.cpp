#include "platform/linux/gtk/controls/tree_rows.h"

#include <algorithm>
#include <utility>

#include "platform/linux/gtk/controls/tree_view.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr int kStamp = 1;  // marks iterators that mean a row

std::string UpToZero(const std::string& text) { return text.substr(0, text.find('\0')); }

}  // namespace

TreeRow::TreeRow(TreeViewControl& tree, TreeRow* parent, int index, const std::string& text,
                 Images images)
    : tree_(tree),
      id_(tree.NextId()),
      parent_(parent),
      index_(index),
      text_(UpToZero(text)),
      shown_(Valid(OnOneLine(text_))),
      images_(images) {}

Gtk::TreePath TreeRow::Path() const {
  Gtk::TreePath path;
  for (const auto* row = this; row; row = row->parent_) path.push_front(row->index_);
  return path;
}

bool TreeRow::Expanded() const { return tree_.IsOpen(*this); }

void TreeRow::SetExpanded(bool expanded) {
  if (expanded) {
    tree_.Open(*this);
  } else {
    tree_.Close(*this);
  }
}

TreeRows::TreeRows() : Glib::ObjectBase(typeid(TreeRows)), Glib::Object() {}

Glib::RefPtr<TreeRows> TreeRows::Create() { return Glib::RefPtr<TreeRows>(new TreeRows()); }

void TreeRows::Tell(TreeRow& row, void (*what)(GtkTreeModel*, GtkTreePath*, GtkTreeIter*)) {
  GtkTreeIter iter{kStamp, &row, nullptr, nullptr};
  auto path = row.Path();
  what(GTK_TREE_MODEL(Glib::Object::gobj()), path.gobj(), &iter);
}

TreeRow& TreeRows::Add(TreeViewControl& tree, TreeRow* parent, const std::string& text,
                       TreeRow::Images images) {
  auto& siblings = parent ? parent->children_ : roots_;
  siblings.push_back(
      std::make_unique<TreeRow>(tree, parent, static_cast<int>(siblings.size()), text, images));
  auto& row = *siblings.back();
  by_id_[row.Id()] = &row;
  if (parent && parent->held_back_ > 0) {
    ++parent->held_back_;
    return row;
  }
  Tell(row, &gtk_tree_model_row_inserted);
  if (parent && siblings.size() == 1) Tell(*parent, &gtk_tree_model_row_has_child_toggled);
  return row;
}

void TreeRows::Remove(TreeRow& row) {
  auto* parent = row.parent_;
  auto path = row.Path();
  const bool seen = IsSeen(row);
  auto& siblings = parent ? parent->children_ : roots_;
  const auto at = siblings.begin() + row.index_;
  const auto gone = std::move(*at);  // lives until everybody has been told
  for (auto after = siblings.erase(at); after != siblings.end(); ++after) --(*after)->index_;
  Forget(*gone);
  if (!seen) {
    --parent->held_back_;
    return;
  }
  gtk_tree_model_row_deleted(GTK_TREE_MODEL(Glib::Object::gobj()), path.gobj());
  if (parent && parent->children_.empty()) Tell(*parent, &gtk_tree_model_row_has_child_toggled);
}

void TreeRows::Forget(const TreeRow& row) {
  by_id_.erase(row.Id());
  for (const auto& child : row.children_) Forget(*child);
}

void TreeRows::SetText(TreeRow& row, const std::string& text) {
  row.text_ = UpToZero(text);
  row.shown_ = Valid(OnOneLine(row.text_));
  if (IsSeen(row)) Tell(row, &gtk_tree_model_row_changed);
}

bool TreeRows::Drop(std::size_t count) {
  for (; count > 0 && !roots_.empty(); --count) {
    auto* last = roots_.back().get();
    while (!last->children_.empty()) last = last->children_.back().get();
    by_id_.erase(last->Id());
    (last->parent_ ? last->parent_->children_ : roots_).pop_back();
  }
  return !roots_.empty();
}

void TreeRows::HoldBack(TreeRow& row, std::size_t most) {
  if (row.children_.size() > most) row.held_back_ = row.children_.size() - most;
}

bool TreeRows::Release(TreeRow& row, std::size_t count) {
  for (; count > 0 && row.held_back_ > 0; --count) {
    const std::size_t next = row.children_.size() - row.held_back_;
    --row.held_back_;
    Tell(*row.children_[next], &gtk_tree_model_row_inserted);
  }
  return row.held_back_ > 0;
}

void TreeRows::ReleaseUpTo(const TreeRow& row) {
  for (TreeRow* above = row.parent_; above; above = above->parent_) {
    Release(*above, above->held_back_);
  }
}

TreeRow* TreeRows::Find(TreeNodeId id) const {
  const auto at = by_id_.find(id);
  return at == by_id_.end() ? nullptr : at->second;
}

std::vector<TreeNode*> TreeRows::All() const {
  std::vector<TreeNode*> all;
  all.reserve(by_id_.size());
  for (const auto& [id, row] : by_id_) all.push_back(row);
  std::sort(all.begin(), all.end(),
            [](const TreeNode* one, const TreeNode* other) { return one->Id() < other->Id(); });
  return all;
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
  const bool there = n >= 0 && n < static_cast<int>(Seen(RowAt(parent)));
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
  return Set(next, index < Seen(row->parent_) ? siblings[index].get() : nullptr);
}

bool TreeRows::iter_parent_vfunc(const iterator& child, iterator& iter) const {
  const auto* row = RowAt(child);
  return Set(iter, row ? row->parent_ : nullptr);
}

bool TreeRows::get_iter_vfunc(const Path& path, iterator& iter) const {
  TreeRow* row = nullptr;
  for (const int index : path) {
    const auto& siblings = Siblings(row);
    if (index < 0 || index >= static_cast<int>(Seen(row))) return Set(iter, nullptr);
    row = siblings[static_cast<std::size_t>(index)].get();
  }
  return Set(iter, row);
}

bool TreeRows::iter_has_child_vfunc(const iterator& iter) const {
  return iter_n_children_vfunc(iter) > 0;
}

int TreeRows::iter_n_children_vfunc(const iterator& iter) const {
  const auto* row = RowAt(iter);
  return row ? static_cast<int>(Seen(row)) : 0;
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
