#include "platform/linux/gtk/tree_view.h"

#include <gtkmm/cellrenderertext.h>
#include <gtkmm/settings.h>

#include <utility>

#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/virtual_key.h"

namespace corvane::desktop {
namespace {

struct Record : Gtk::TreeModelColumnRecord {
  Gtk::TreeModelColumn<Glib::ustring> text;
  Gtk::TreeModelColumn<TreeRow*> row;
  Record() {
    add(text);
    add(row);
  }
};

const Record& Columns() {
  static const Record record;
  return record;
}

gunichar Folded(gunichar character) { return g_unichar_tolower(character); }

}  // namespace

bool TreeRow::Expanded() const { return tree_.view_.row_expanded(tree_.PathOf(*this)); }

void TreeRow::SetExpanded(bool expanded) {
  const auto path = tree_.PathOf(*this);
  if (!expanded) {
    tree_.view_.collapse_row(path);
    return;
  }
  tree_.view_.expand_to_path(path);  // so that the row itself is one that can be opened
  tree_.view_.expand_row(path, false);
}

TreeViewControl::TreeViewControl(const std::string& name, WindowTable& windows)
    : store_(Gtk::TreeStore::create(Columns())) {
  auto* cell = Gtk::make_managed<Gtk::CellRendererText>();
  cell->property_ellipsize() = Pango::ELLIPSIZE_END;
  auto* column = Gtk::make_managed<Gtk::TreeViewColumn>();
  column->pack_start(*cell, true);
  column->add_attribute(*cell, "text", 0);
  column->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
  column->set_expand(true);
  view_.append_column(*column);
  view_.set_headers_visible(false);
  view_.set_enable_search(false);  // its entry would take keys away from KeyDown
  view_.set_fixed_height_mode(true);  // 10,000 children open at once without being measured
  view_.set_model(store_);
  view_.show();
  scroll_.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroll_.set_vexpand(true);
  scroll_.add(view_);
  Bind(scroll_, view_, name, "TreeView", windows, [this] {
    const auto* node = SelectedItem();
    return node ? node->Text() : std::string();
  });

  view_.get_selection()->signal_changed().connect([this] {
    if (showing_) return;
    if (auto* node = SelectedItem()) NodeClick.Raise(*node);
  });
  view_.signal_key_press_event().connect([this](GdkEventKey* event) { return Key(*event); }, false);
  view_.signal_button_press_event().connect(
      [this](GdkEventButton* event) {
        Pressed(*event);
        return false;
      },
      false);
}

TreeNode& TreeViewControl::Add(TreeNode* parent, const std::string& text) {
  auto* above = dynamic_cast<TreeRow*>(parent);
  auto& siblings = above ? above->children_ : roots_;
  auto row = std::make_unique<TreeRow>(*this, text, Gtk::TreeIter());
  const auto shown = Valid(OnOneLine(text));
  // One signal a row, not one a column.
  GtkTreeIter made{};
  gtk_tree_store_insert_with_values(store_->gobj(), &made, above ? above->row_.gobj() : nullptr, -1,
                                    0, shown.c_str(), 1, row.get(), -1);
  row->row_ = Gtk::TreeIter(store_->gobj() ? GTK_TREE_MODEL(store_->gobj()) : nullptr, &made);
  siblings.push_back(std::move(row));
  return *siblings.back();
}

void TreeViewControl::Clear() {
  const bool before = std::exchange(showing_, true);
  store_ = Gtk::TreeStore::create(Columns());
  view_.set_model(store_);
  roots_.clear();
  showing_ = before;
}

TreeRow* TreeViewControl::RowAt(const Gtk::TreeIter& iter) const {
  return iter ? iter->get_value(Columns().row) : nullptr;
}

TreeNode* TreeViewControl::SelectedItem() const {
  return RowAt(const_cast<Gtk::TreeView&>(view_).get_selection()->get_selected());
}

void TreeViewControl::SetSelectedItem(TreeNode* node) {
  const bool before = std::exchange(showing_, true);
  if (auto* row = dynamic_cast<TreeRow*>(node)) {
    auto path = PathOf(*row);
    auto above = path;
    if (above.up() && !above.empty()) view_.expand_to_path(above);
    view_.set_cursor(path);
  } else {
    view_.get_selection()->unselect_all();
  }
  showing_ = before;
}

bool TreeViewControl::GoTo(const Gtk::TreePath& path) {
  view_.set_cursor(path);
  return true;
}

bool TreeViewControl::Key(const GdkEventKey& event) {
  if (ShiftState(event.state) & (kCtrlMask | kAltMask)) return false;
  auto* node = dynamic_cast<TreeRow*>(SelectedItem());
  if (!node) return false;
  const int key = VirtualKey(event);
  auto path = PathOf(*node);
  if (key == kKeyRight) {
    if (node->Children() == 0) return true;
    if (node->Expanded()) return GoTo(PathOf(*node->children_.front()));
    node->SetExpanded(true);
    return true;
  }
  if (key == kKeyLeft) {
    if (node->Expanded()) {
      node->SetExpanded(false);
    } else if (path.up() && !path.empty()) {
      GoTo(path);
    }
    return true;
  }
  const gunichar letter = gdk_keyval_to_unicode(event.keyval);
  return letter != 0 && g_unichar_isgraph(letter) && FindLetter(letter);
}

// The next node on view, after the selected one and round again, whose text
// begins with the letter.
bool TreeViewControl::FindLetter(gunichar letter) {
  std::vector<const TreeRow*> before;
  std::vector<const TreeRow*> after;
  const auto* selected = SelectedItem();
  bool passed = false;
  const auto walk = [&](const auto& self, const auto& rows) -> void {
    for (const auto& row : rows) {
      (passed ? after : before).push_back(row.get());
      if (row.get() == selected) passed = true;
      if (row->Children() > 0 && row->Expanded()) self(self, row->children_);
    }
  };
  walk(walk, roots_);
  after.insert(after.end(), before.begin(), before.end());
  for (const auto* row : after) {
    const auto text = Valid(row->text_);
    if (!text.empty() && Folded(text[0]) == Folded(letter)) return GoTo(PathOf(*row));
  }
  return false;
}

void TreeViewControl::Pressed(const GdkEventButton& event) {
  if (event.button != 1 || event.window != view_.get_bin_window()->gobj()) return;
  Gtk::TreePath path;
  const bool on_row =
      view_.get_path_at_pos(static_cast<int>(event.x), static_cast<int>(event.y), path);
  if (!on_row) return;
  if (event.type == GDK_2BUTTON_PRESS) {
    DblClick.Raise();
    return;
  }
  if (event.type != GDK_BUTTON_PRESS) return;
  // The view itself tells of a newly selected row. A second press on the same one
  // is a click again, unless it is half of a double click.
  const auto pause = static_cast<guint32>(
      Gtk::Settings::get_default()->property_gtk_double_click_time().get_value());
  const bool again = event.time - last_press_ > pause;
  last_press_ = event.time;
  auto* node = SelectedItem();
  auto* row = dynamic_cast<TreeRow*>(node);
  if (row && again && PathOf(*row) == path) NodeClick.Raise(*node);
}

}  // namespace corvane::desktop
