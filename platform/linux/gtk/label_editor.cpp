#include "platform/linux/gtk/label_editor.h"

#include <utility>

#include "platform/linux/gtk/post.h"

namespace corvane::desktop {

void LabelEditor::Attach(Gtk::TreeViewColumn& column, Gtk::CellRendererText& cell) {
  column_ = &column;
  cell_ = &cell;
  cell.signal_edited().connect([this](const Glib::ustring&, const Glib::ustring& text) {
    End();
    // The view is still busy with the end of the editing.
    PostToLoop([done = std::exchange(done_, nullptr), text = std::string(text)] {
      if (done) done(text);
    });
  });
  cell.signal_editing_canceled().connect([this] { End(); });
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

void LabelEditor::End() {
  cell_->property_editable() = false;
  editing_ = false;
  last_key_is_down_ = true;
}

}  // namespace corvane::desktop
