#include "platform/linux/gtk/controls/list_box.h"

namespace corvane::desktop {

ListBoxControl::ListBoxControl(const std::string& name, WindowTable& windows) {
  ShowLines(view_, lines_);
  view_.show();
  scroll_.add(view_);
  scroll_.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroll_.set_vexpand(true);
  Bind(scroll_, view_, name, "ListBox", windows,
       [this] { return ListIndex() < 0 ? std::string() : List(ListIndex()); });
}

void ListBoxControl::Clear() {
  lines_.Clear();
  view_.set_model(lines_.Model());
}

int ListBoxControl::ListIndex() const {
  const auto chosen = const_cast<Gtk::TreeView&>(view_).get_selection()->get_selected();
  return chosen ? lines_.Model()->get_path(chosen)[0] : -1;
}

void ListBoxControl::SetListIndex(int index) {
  if (index < 0) {
    view_.get_selection()->unselect_all();
    return;
  }
  lines_.At(index);  // an index outside the list is an error
  Gtk::TreePath path;
  path.push_back(index);
  view_.get_selection()->select(path);
  // Out of sight there is nothing to scroll.
  if (view_.get_mapped()) view_.scroll_to_row(path);
}

void ListBoxControl::Move(float left, float top) {
  binding().SetPlace({PixelsOf(left), PixelsOf(top)});
}

}  // namespace corvane::desktop
