#include "platform/linux/gtk/controls/line_list.h"

#include <gtkmm/cellrenderertext.h>

#include <algorithm>
#include <string_view>

#include "base/error.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

const Gtk::TreeModelColumnRecord& Columns() {
  static const struct Record : Gtk::TreeModelColumnRecord {
    Gtk::TreeModelColumn<Glib::ustring> text;
    Record() { add(text); }
  } record;
  return record;
}

gunichar FirstLetter(const std::string& text) {
  std::string_view line = text;
  if (const auto scheme = line.find("://"); scheme != std::string_view::npos) {
    line.remove_prefix(scheme + 3);
    if (line.starts_with("www.")) line.remove_prefix(4);
  }
  const auto shown = Valid(std::string(line.substr(0, 8)));
  return shown.empty() ? 0 : Folded(shown[0]);
}

}  // namespace

LineList::LineList() : model_(Gtk::ListStore::create(Columns())) {}

const std::string& LineList::At(int index) const {
  if (!Has(index)) throw RunTimeError(kErrSubscriptOutOfRange, "", "Subscript out of range");
  return texts_[static_cast<std::size_t>(index)];
}

int LineList::Find(const std::string& text) const {
  const auto at = std::find(texts_.begin(), texts_.end(), text);
  return at == texts_.end() ? -1 : static_cast<int>(at - texts_.begin());
}

int LineList::NextWith(gunichar letter, int index) const {
  for (int step = 1; step <= Count(); ++step) {
    const int at = (std::max(index, -1) + step) % Count();
    if (FirstLetter(At(at)) == Folded(letter)) return at;
  }
  return -1;
}

void LineList::Append(const std::string& text) {
  texts_.push_back(text);
  const auto shown = Valid(OnOneLine(text));
  // One signal instead of the two that appending and then setting would send.
  gtk_list_store_insert_with_values(model_->gobj(), nullptr, -1, 0, shown.c_str(), -1);
}

void LineList::Clear() {
  texts_.clear();
  model_ = Gtk::ListStore::create(Columns());
}

void ShowLines(Gtk::TreeView& view, const LineList& lines) {
  auto* cell = Gtk::make_managed<Gtk::CellRendererText>();
  cell->property_ellipsize() = Pango::ELLIPSIZE_END;
  auto* column = Gtk::make_managed<Gtk::TreeViewColumn>();
  column->pack_start(*cell, true);
  column->add_attribute(*cell, "text", 0);
  column->set_sizing(Gtk::TREE_VIEW_COLUMN_FIXED);
  column->set_expand(true);
  view.append_column(*column);
  view.set_headers_visible(false);
  view.set_enable_search(false);
  view.set_fixed_height_mode(true);
  view.set_model(lines.Model());
}

}  // namespace corvane::desktop
