#include "platform/linux/gtk/controls/combo_drop_down.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/cssprovider.h>
#include <gtkmm/stylecontext.h>

#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/gtk/text.h"
#include "platform/linux/gtk/virtual_key.h"

namespace corvane::desktop {
namespace {

// The arrow is for the pointer. As a tab stop it would be a place without words.
void KeepArrowOutOfTabOrder(GtkWidget* widget, gpointer) {
  if (GTK_IS_TOGGLE_BUTTON(widget)) {
    gtk_widget_set_can_focus(widget, FALSE);
  } else if (GTK_IS_CONTAINER(widget)) {
    gtk_container_forall(GTK_CONTAINER(widget), &KeepArrowOutOfTabOrder, nullptr);
  }
}

void FindList(GtkWidget* widget, gpointer found) {
  if (GTK_IS_TREE_VIEW(widget)) {
    *static_cast<GtkTreeView**>(found) = GTK_TREE_VIEW(widget);
  } else if (GTK_IS_CONTAINER(widget)) {
    gtk_container_forall(GTK_CONTAINER(widget), &FindList, found);
  }
}

// The toolkit gives out its open list for other readers only.
Gtk::TreeView* OpenListOf(Gtk::ComboBox& combo) {
  AtkObject* popup = gtk_combo_box_get_popup_accessible(combo.gobj());
  GtkTreeView* found = nullptr;
  if (GTK_IS_ACCESSIBLE(popup)) FindList(gtk_accessible_get_widget(GTK_ACCESSIBLE(popup)), &found);
  return found == nullptr ? nullptr : Glib::wrap(found);
}

}  // namespace

DropDownCombo::DropDownCombo(const std::string& name, WindowTable& windows) : combo_(true) {
  // As a list, not as a menu: a menu has a widget for every entry.
  const auto style = Gtk::CssProvider::create();
  style->load_from_data("combobox { -GtkComboBox-appears-as-list: 1; }");
  combo_.get_style_context()->add_provider(style, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  combo_.set_model(lines_.Model());
  combo_.set_entry_text_column(0);
  gtk_container_forall(combo_.Gtk::Container::gobj(), &KeepArrowOutOfTabOrder, nullptr);
  auto& field = Field();
  field.set_width_chars(10);
  Bind(combo_, field, name, "ComboBox", windows, [this] { return Text(); });
  combo_.signal_changed().connect([this] {
    if (showing_) return;
    const int chosen = combo_.get_active_row_number();
    if (chosen < 0) {
      Typed();
    } else {
      chosen_ = true;
      Choose(chosen);
    }
  });
  combo_.property_popup_shown().signal_changed().connect([this] {
    const bool shown = combo_.property_popup_shown();
    binding().OwnListOpen(shown);
    if (!shown) told_ = -1;
    PostToLoop([this, here = life_.Look()] {
      if (!here) return;
      if (combo_.property_popup_shown()) {
        ListShown();
      } else {
        ListHidden();
      }
    });
  });
  field.signal_key_press_event().connect([this](GdkEventKey* event) { return Key(*event); }, false);
}

void DropDownCombo::SetText(const std::string& text) {
  ComboBoxControl::SetText(text);
  if (showing_) return;
  showing_ = true;
  combo_.set_active(lines_.Find(text));  // the keys go on from there, nothing is chosen
  showing_ = false;
}

void DropDownCombo::ShowModel() { combo_.set_model(lines_.Model()); }

bool DropDownCombo::Key(const GdkEventKey& event) {
  if (event.keyval != GDK_KEY_F4 || (event.state & gtk_accelerator_get_default_mod_mask()) != 0)
    return false;
  combo_.popup();
  return true;
}

// The toolkit's list has its cursor nowhere when the field shows none of its entries.
void DropDownCombo::ListShown() {
  chosen_ = false;
  Gtk::TreeView* list = OpenListOf(combo_);
  if (list == nullptr) return;
  if (list != list_) {
    list_ = list;
    list_->signal_cursor_changed().connect([this] { TellCursor(); });
    // The window of the list has the keys before the list itself.
    list_->get_toplevel()->signal_key_press_event().connect(
        [this](GdkEventKey* event) { return ListKey(*event); }, false);
  }
  Gtk::TreePath cursor;
  Gtk::TreeViewColumn* column = nullptr;
  list_->get_cursor(cursor, column);
  if (cursor.empty() && ListCount() > 0) list_->set_cursor(Gtk::TreePath("0"));
  TellCursor();
}

// An entry that was chosen says itself.
void DropDownCombo::ListHidden() {
  if (!chosen_) binding().FocusIsBack();
}

void DropDownCombo::TellCursor() {
  if (!combo_.property_popup_shown()) return;
  Gtk::TreePath cursor;
  Gtk::TreeViewColumn* column = nullptr;
  list_->get_cursor(cursor, column);
  if (cursor.empty() || cursor[0] == told_ || !lines_.Has(cursor[0])) return;
  told_ = cursor[0];
  Highlight.Raise(lines_.At(told_));
}

bool DropDownCombo::ListKey(const GdkEventKey& event) {
  const gunichar letter = gdk_keyval_to_unicode(event.keyval);
  const bool looks = (ShiftState(event.state) & ~kShiftMask) == 0 && g_unichar_isgraph(letter);
  if (letter == 0 || !looks) return false;
  const int found = lines_.NextWith(letter, told_);
  if (found == told_ || found < 0) {
    if (lines_.Has(told_)) Highlight.Raise(lines_.At(told_));  // hears where he is
  } else {
    Gtk::TreePath path;
    path.push_back(found);
    list_->set_cursor(path);
  }
  return true;
}

}  // namespace corvane::desktop
