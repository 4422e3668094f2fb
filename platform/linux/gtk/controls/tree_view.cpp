#include "platform/linux/gtk/controls/tree_view.h"

#include <glibmm/main.h>
#include <gtkmm/settings.h>

#include <utility>

#include "base/error.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/virtual_key.h"

namespace corvane::desktop {
namespace {

constexpr int kRowHeight = 26;  // pixels: room for a picture of 24
// A row opens with so many children; the others follow, so many at a time, while
// the user goes on.
constexpr std::size_t kAtOnce = 10'000;
constexpr std::size_t kFollowing = 500;
constexpr int kErrElementNotFound = 35601;

void WhenIdle(std::function<void()> action) { PostToLoop(std::move(action), Turn::WhenIdle); }

// Takes rows that no view shows any more apart, some at a time.
void TakeApart(Glib::RefPtr<TreeRows> rows) {
  WhenIdle([rows = std::move(rows)] {
    if (rows->Drop(kFollowing)) TakeApart(rows);
  });
}

}  // namespace

TreeViewControl::TreeViewControl(const std::string& name, WindowTable& windows,
                                 LabelPrompt ask_label)
    : rows_(TreeRows::Create()), ask_label_(std::move(ask_label)) {
  auto* picture = Gtk::make_managed<Gtk::CellRendererPixbuf>();
  picture->set_fixed_size(-1, kRowHeight);
  auto* cell = Gtk::make_managed<Gtk::CellRendererText>();
  cell->property_ellipsize() = Pango::ELLIPSIZE_END;
  auto* column = Gtk::make_managed<Gtk::TreeViewColumn>();
  column->pack_start(*picture, false);
  column->set_cell_data_func(
      *picture,
      [this, picture](Gtk::CellRenderer*, const Gtk::TreeIter& at) { Draw(*picture, at); });
  column->pack_start(*cell, true);
  column->add_attribute(*cell, "text", 0);
  column->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
  column->set_expand(true);
  view_.append_column(*column);
  view_.set_headers_visible(false);
  view_.set_enable_search(false);     // its entry would take keys away from KeyDown
  view_.set_fixed_height_mode(true);  // 10,000 children open at once without being measured
  view_.set_model(rows_);
  view_.show();
  scroll_.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroll_.set_vexpand(true);
  scroll_.add(view_);
  Bind(scroll_, view_, name, "TreeView", windows, [this] {
    const auto* node = SelectedItem();
    return node ? node->Text() : std::string();
  });
  ListenToView();
}

// What the widgets tell as they go is no news.
TreeViewControl::~TreeViewControl() {
  showing_ = true;
  life_.End();
}

void TreeViewControl::ListenToView() {
  view_.get_selection()->signal_changed().connect([this] {
    const auto* node = showing_ ? nullptr : SelectedItem();
    if (node) Clicked(node->Id());
  });
  view_.signal_key_press_event().connect([this](GdkEventKey* event) { return Key(*event); }, false);
  view_.signal_button_press_event().connect(
      [this](GdkEventButton* event) {
        Pressed(*event);
        return false;
      },
      false);
  // Asking for children may do anything to the tree, which the view does not
  // bear while it opens a row itself: it is kept from it, and the row is opened
  // afterwards.
  view_.signal_test_expand_row().connect(
      [this](const Gtk::TreeIter& at, const Gtk::TreePath&) {
        if (showing_) return false;
        ToggledOutside(at, true);
        return true;
      },
      false);
  view_.signal_test_collapse_row().connect(
      [this](const Gtk::TreeIter& at, const Gtk::TreePath&) {
        if (showing_) return false;
        ToggledOutside(at, false);
        return true;
      },
      false);
}

// What hears of a click may let another key in. The view, which tells of its new
// selection halfway through a move, would take the cursor back over that key's move.
void TreeViewControl::Clicked(TreeNodeId id) {
  PostToLoop([this, here = life_.Look(), id] {
    auto* node = here ? SelectedItem() : nullptr;
    if (node && node->Id() == id) NodeClick.Raise(*node);
  });
}

void TreeViewControl::ToggledOutside(const Gtk::TreeIter& at, bool open) {
  const auto* row = TreeRows::RowAt(at);
  if (!row) return;
  PostToLoop([this, here = life_.Look(), id = row->Id(), open] {
    auto* still = here ? rows_->Find(id) : nullptr;
    if (still && still->Expanded() != open) ToggleByUser(*still);
  });
}

void TreeViewControl::ToggleByUser(TreeRow& row) {
  const auto here = life_.Look();
  const TreeNodeId id = row.Id();
  row.SetExpanded(!row.Expanded());
  auto* still = here ? rows_->Find(id) : nullptr;
  if (still) Toggled.Raise(*still);
}

void TreeViewControl::Open(TreeRow& row) {
  if (row.Expanded()) return;
  const auto here = life_.Look();
  const TreeNodeId id = row.Id();
  Expand.Raise(row);
  auto* still = here ? rows_->Find(id) : nullptr;
  if (!still || still->Children() == 0) return;
  rows_->HoldBack(*still, kAtOnce);
  const bool before = std::exchange(showing_, true);
  view_.expand_to_path(still->Path());
  showing_ = before;
  Release(id);
}

// Lets the view see children that were held back, a few at a time.
void TreeViewControl::Release(TreeNodeId id) {
  WhenIdle([this, here = life_.Look(), id] {
    auto* row = here ? rows_->Find(id) : nullptr;
    if (!row) return;
    const bool before = std::exchange(showing_, true);
    const bool more = rows_->Release(*row, kFollowing);
    showing_ = before;
    if (more) Release(id);
  });
}

bool TreeViewControl::IsOpen(const TreeRow& row) const {
  return const_cast<Gtk::TreeView&>(view_).row_expanded(row.Path());
}

void TreeViewControl::Close(TreeRow& row) {
  const bool before = std::exchange(showing_, true);
  view_.collapse_row(row.Path());
  showing_ = before;
}

TreeNode& TreeViewControl::Add(TreeNode* parent, const std::string& text, int image,
                               int selected_image) {
  const int known = images_ ? images_->Count() : 0;
  if (image < 0 || image > known || selected_image < 0 || selected_image > known) {
    throw RunTimeError(kErrElementNotFound, "TreeView", "Element not found");
  }
  return rows_->Add(*this, dynamic_cast<TreeRow*>(parent), text, {image, selected_image});
}

void TreeViewControl::Remove(TreeNode& node) {
  const bool before = std::exchange(showing_, true);
  rows_->Remove(dynamic_cast<TreeRow&>(node));
  showing_ = before;
}

void TreeViewControl::Clear() {
  const bool before = std::exchange(showing_, true);
  auto old = std::exchange(rows_, TreeRows::Create());
  view_.set_model(rows_);
  TakeApart(std::move(old));
  showing_ = before;
}

void TreeViewControl::SetImageList(const ImageList* images) {
  images_ = dynamic_cast<const PixbufList*>(images);
  view_.queue_draw();
}

void TreeViewControl::Draw(Gtk::CellRendererPixbuf& cell, const Gtk::TreeIter& at) const {
  const auto* row = TreeRows::RowAt(at);
  Glib::RefPtr<Gdk::Pixbuf> picture;
  if (row && images_) {
    const bool selected = row == SelectedItem();
    picture = images_->Pixbuf(selected ? row->Pictures().selected : row->Pictures().usual);
  }
  cell.property_pixbuf() = picture;
}

void TreeViewControl::StartLabelEdit() {
  auto* row = dynamic_cast<TreeRow*>(SelectedItem());
  if (!row) return;
  const auto here = life_.Look();
  const TreeNodeId id = row->Id();
  bool cancel = false;
  BeforeLabelEdit.Raise(cancel);
  if (cancel || !here || rows_->Find(id) == nullptr) return;
  edited_ = id;
  if (!ask_label_) return;
  // An edit that is given up ends with the label as it is.
  ask_label_(row->Text(), [this, here, label = row->Text()](std::optional<std::string> text) {
    if (here) Edited(text.value_or(label));
  });
}

// The handlers ask for the selected node: it is the edited one, unless the tree
// has become another meanwhile.
void TreeViewControl::Edited(const std::string& text) {
  const auto here = life_.Look();
  const TreeNodeId id = edited_;
  if (SelectedItem() == nullptr || SelectedItem()->Id() != id) return;
  bool cancel = false;
  AfterLabelEdit.Raise(cancel, text);
  auto* row = here && !cancel ? rows_->Find(id) : nullptr;
  if (row) rows_->SetText(*row, text);
}

TreeNode* TreeViewControl::SelectedItem() const {
  const auto chosen = const_cast<Gtk::TreeView&>(view_).get_selection()->get_selected();
  return chosen ? TreeRows::RowAt(chosen) : nullptr;
}

void TreeViewControl::SetSelectedItem(TreeNode* node) {
  const bool before = std::exchange(showing_, true);
  if (auto* row = dynamic_cast<TreeRow*>(node)) {
    rows_->ReleaseUpTo(*row);
    const auto path = row->Path();
    auto above = path;
    if (above.up() && !above.empty()) view_.expand_to_path(above);
    view_.set_cursor(path);
  } else {
    view_.get_selection()->unselect_all();
  }
  showing_ = before;
}

bool TreeViewControl::GoTo(const TreeRow& row) {
  rows_->ReleaseUpTo(row);
  view_.set_cursor(row.Path());
  return true;
}

bool TreeViewControl::Key(const GdkEventKey& event) {
  if (ShiftState(event.state) & (kCtrlMask | kAltMask)) return false;
  auto* node = dynamic_cast<TreeRow*>(SelectedItem());
  if (!node) return false;
  const int key = VirtualKey(event);
  if (key == kKeyRight) {
    if (node->Children() == 0) return true;
    if (node->Expanded()) return GoTo(node->Child(0));
    ToggleByUser(*node);
    return true;
  }
  if (key == kKeyLeft) {
    if (node->Expanded()) {
      ToggleByUser(*node);
    } else if (const auto* above = node->Above()) {
      GoTo(*above);
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
  const auto visit = [&](const auto& self, const TreeRow& row) -> void {
    (passed ? after : before).push_back(&row);
    if (&row == selected) passed = true;
    if (row.Children() == 0 || !row.Expanded()) return;
    for (std::size_t i = 0; i < row.Children(); ++i) self(self, row.Child(i));
  };
  for (const auto& row : rows_->Roots()) visit(visit, *row);
  after.insert(after.end(), before.begin(), before.end());
  for (const auto* row : after) {
    const auto text = Valid(row->Text());
    if (!text.empty() && Folded(text[0]) == Folded(letter)) return GoTo(*row);
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
  if (row && again && row->Path() == path) NodeClick.Raise(*node);
}

}  // namespace corvane::desktop
