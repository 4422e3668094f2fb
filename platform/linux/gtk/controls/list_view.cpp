#include "platform/linux/gtk/controls/list_view.h"

#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr int kErrOutOfBounds = 35600;

}  // namespace

ListViewControl::ListViewControl(const std::string& name, WindowTable& windows) {
  view_.set_model(store_);
  MakeViewColumns();
  view_.show();
  scroll_.add(view_);
  scroll_.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
  scroll_.set_vexpand(true);
  Bind(scroll_, view_, name, "ListView", windows, [this] {
    const auto chosen = view_.get_selection()->get_selected();
    return chosen ? RowAt(chosen)->Text() : std::string();
  });
}

void ListViewControl::Row::SetSubItem(int index, const std::string& text) {
  const auto column = static_cast<std::size_t>(std::max(index, 0));
  texts_.resize(std::max(texts_.size(), column + 1));
  texts_[column] = text;
  list_.view_.queue_draw();
}

ListItem& ListViewControl::Add(const std::string& text, int /*icon*/, int small_icon) {
  rows_.push_back(std::make_unique<Row>(*this, text, small_icon));
  (*store_->append())[model_.row] = rows_.back().get();
  return *rows_.back();
}

void ListViewControl::Remove(int index) {
  if (index < 1 || index > static_cast<int>(rows_.size())) {
    throw RunTimeError(kErrOutOfBounds, "ListView", "Index out of bounds");
  }
  Gtk::TreePath path;
  path.push_back(index - 1);
  store_->erase(store_->get_iter(path));
  rows_.erase(rows_.begin() + index - 1);
}

void ListViewControl::ClearItems() {
  store_->clear();
  rows_.clear();
}

void ListViewControl::SetImageList(const ImageList* images) {
  images_ = dynamic_cast<const PixbufList*>(images);
  view_.queue_draw();
}

float ListViewControl::ColumnLeft(int index) const {
  float left = 0;
  for (int i = 1; i < index; ++i) left += ColumnWidth(i);
  return left;
}

float ListViewControl::ColumnWidth(int index) const {
  return columns_.at(static_cast<std::size_t>(index) - 1).width;
}

void ListViewControl::AddColumn(const std::string& caption, float width) {
  columns_.push_back({caption, width});
  MakeViewColumns();
}

void ListViewControl::ClearColumns() {
  columns_.clear();
  MakeViewColumns();
}

// The items are there to be read also while nobody has named a column.
void ListViewControl::MakeViewColumns() {
  view_.remove_all_columns();
  view_.set_headers_visible(!columns_.empty());
  for (std::size_t i = 0; i < std::max<std::size_t>(columns_.size(), 1); ++i) {
    view_.append_column(*NewViewColumn(i));
  }
}

Gtk::TreeViewColumn* ListViewControl::NewViewColumn(std::size_t index) {
  auto* column = Gtk::make_managed<Gtk::TreeViewColumn>();
  if (index < columns_.size()) {
    column->set_title(Valid(columns_[index].caption));
    column->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
    column->set_fixed_width(std::max(1, PixelsOf(columns_[index].width)));
    column->set_resizable(true);
  }
  if (index == 0) {
    auto* picture = Gtk::make_managed<Gtk::CellRendererPixbuf>();
    column->pack_start(*picture, false);
    column->set_cell_data_func(
        *picture, [this, picture](Gtk::CellRenderer*, const Gtk::TreeIter& at) {
          picture->property_pixbuf() =
              images_ ? images_->Pixbuf(RowAt(at)->Picture()) : Glib::RefPtr<Gdk::Pixbuf>();
        });
  }
  auto* text = Gtk::make_managed<Gtk::CellRendererText>();
  column->pack_start(*text, true);
  column->set_cell_data_func(
      *text, [this, text, index](Gtk::CellRenderer*, const Gtk::TreeIter& at) {
        const Row* row = RowAt(at);
        text->property_text() = row ? Valid(OnOneLine(row->TextIn(index))) : Glib::ustring();
      });
  return column;
}

}  // namespace corvane::desktop
