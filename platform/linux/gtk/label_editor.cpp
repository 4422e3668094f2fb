#include "platform/linux/gtk/label_editor.h"

#include <gtkmm/window.h>

#include <utility>

#include "platform/linux/gtk/post.h"

namespace corvane::desktop {

void LabelEditor::Attach(Gtk::TreeViewColumn& column, Gtk::CellRendererText& cell) {
  column_ = &column;
  cell_ = &cell;
  cell.signal_edited().connect(
      [this](const Glib::ustring&, const Glib::ustring& text) { End(std::string(text)); });
  cell.signal_editing_canceled().connect([this] { End(std::nullopt); });
  view_.signal_key_press_event().connect(
      [this](GdkEventKey*) {
        if (!editing_) last_key_is_down_ = false;
        return false;
      },
      false);
  view_.signal_key_release_event().connect(
      [this](GdkEventKey*) { return editing_ || std::exchange(last_key_is_down_, false); }, false);
}

void LabelEditor::Start(const Gtk::TreePath& path, std::function<void(const std::string&)> done) {
  done_ = std::move(done);
  editing_ = true;
  cell_->property_editable() = true;
  view_.set_cursor(path, *column_, *cell_, true);
}

// The view is still busy with the end of the editing. It leaves the focus with
// nobody, unless the user has taken it elsewhere.
void LabelEditor::End(std::optional<std::string> text) {
  cell_->property_editable() = false;
  editing_ = false;
  last_key_is_down_ = true;
  PostToLoop([this, weak = std::weak_ptr(alive_), done = std::exchange(done_, nullptr), text] {
    if (weak.expired()) return;
    auto* top = dynamic_cast<Gtk::Window*>(view_.get_toplevel());
    auto* focus = top ? top->get_focus() : nullptr;
    if (top && (!focus || focus->is_ancestor(view_))) view_.grab_focus();
    if (done && text) done(*text);
  });
}

}  // namespace corvane::desktop
