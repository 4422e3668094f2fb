#include "platform/linux/gtk/controls/combo_drop_down.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/cssprovider.h>
#include <gtkmm/stylecontext.h>

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
      Choose(chosen);
    }
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

}  // namespace corvane::desktop
