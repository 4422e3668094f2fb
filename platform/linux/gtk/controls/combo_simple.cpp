#include "platform/linux/gtk/controls/combo_simple.h"

#include <gdk/gdkkeysyms.h>

#include <algorithm>

#include "platform/linux/gtk/virtual_key.h"

namespace corvane::desktop {

SimpleCombo::SimpleCombo(const std::string& name, WindowTable& windows)
    : box_(Gtk::ORIENTATION_VERTICAL) {
  ShowLines(list_, lines_);
  list_.set_can_focus(false);
  scroll_.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroll_.set_can_focus(false);
  scroll_.add(list_);
  field_.set_width_chars(10);
  field_.set_editable(false);
  box_.pack_start(field_, false, true);
  box_.pack_start(scroll_, true, true);
  box_.set_vexpand(true);
  box_.show_all();
  Bind(box_, field_, name, "ComboBox", windows, [this] { return Text(); });

  field_.signal_key_press_event().connect([this](GdkEventKey* event) { return Key(*event); },
                                          false);
  list_.get_selection()->signal_changed().connect([this] {
    if (showing_) return;
    const auto chosen = list_.get_selection()->get_selected();
    if (chosen) Choose(list_.get_model()->get_path(chosen)[0]);
  });
  list_.signal_button_release_event().connect(
      [this](GdkEventButton*) {
        field_.grab_focus_without_selecting();
        return false;
      },
      false);
  list_.signal_row_activated().connect([this](const Gtk::TreePath& path, Gtk::TreeViewColumn*) {
    Choose(path[0]);
    DblClick.Raise();
  });
  atk_object_add_relationship(gtk_widget_get_accessible(GTK_WIDGET(field_.gobj())),
                              ATK_RELATION_CONTROLLER_FOR,
                              gtk_widget_get_accessible(GTK_WIDGET(list_.gobj())));
}

void SimpleCombo::ShowIndex(int index) {
  if (index < 0) {
    list_.get_selection()->unselect_all();
    return;
  }
  Gtk::TreePath path;
  path.push_back(index);
  list_.set_cursor(path);
}

int SimpleCombo::PageSize() {
  Gtk::TreePath first;
  Gtk::TreePath last;
  constexpr int kUnseen = 10;  // lines to a page while the list is not on the screen
  if (!list_.get_visible_range(first, last)) return kUnseen;
  return std::max(1, last[0] - first[0]);
}

// Who looks in vain, or finds what is chosen already, hears where he is.
void SimpleCombo::FindLetter(gunichar letter) {
  const int found = lines_.NextWith(letter, index_);
  if (found < 0 || found == index_) return Click.Raise();
  Choose(found);
}

bool SimpleCombo::Key(const GdkEventKey& event) {
  const gunichar letter = gdk_keyval_to_unicode(event.keyval);
  if ((ShiftState(event.state) & ~kShiftMask) == 0 && letter != 0 && g_unichar_isgraph(letter)) {
    FindLetter(letter);
    return true;
  }
  if (ShiftState(event.state) != 0) return false;
  const int last = ListCount() - 1;
  int wanted = 0;
  switch (VirtualKey(event)) {
    case kKeyUp:
      wanted = index_ - 1;
      break;
    case kKeyDown:
      wanted = index_ + 1;
      break;
    case 33:  // Page Up
      wanted = index_ - PageSize();
      break;
    case 34:  // Page Down
      wanted = index_ + PageSize();
      break;
    default:
      return false;
  }
  if (last >= 0) Choose(std::clamp(wanted, 0, last));
  return true;
}

}  // namespace corvane::desktop
