#include "platform/linux/gtk/menu/menu.h"

#include "platform/linux/gtk/menu/menu_entry.h"

namespace corvane::desktop {
namespace {

gboolean TellFocus(gpointer bar) {
  GtkWidget* top = gtk_widget_get_toplevel(GTK_WIDGET(bar));
  GtkWidget* focused = GTK_IS_WINDOW(top) ? gtk_window_get_focus(GTK_WINDOW(top)) : nullptr;
  if (focused == nullptr || !gtk_widget_has_focus(focused) || !gtk_widget_get_realized(focused)) {
    return G_SOURCE_REMOVE;
  }
  if (gtk_menu_shell_get_selected_item(GTK_MENU_SHELL(bar)) != nullptr) return G_SOURCE_REMOVE;
  GdkEvent* event = gdk_event_new(GDK_FOCUS_CHANGE);
  event->focus_change.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(focused)));
  event->focus_change.in = TRUE;
  g_signal_emit_by_name(focused, "event-after", event);
  gdk_event_free(event);
  return G_SOURCE_REMOVE;
}

// What the toolkit tells other readers of the focus it tells when it has nothing else to
// do. An item that is chosen before that time keeps the focus for them, whatever has it,
// and goes on keeping it: they are told once more, after everything else.
void TellFocusLast(Gtk::MenuBar& bar) {
  g_idle_add_full(G_PRIORITY_LOW, &TellFocus, g_object_ref(bar.gobj()), g_object_unref);
}

}  // namespace

MenuRoot::MenuRoot() = default;
MenuRoot::~MenuRoot() = default;

MenuItem& MenuRoot::Add(const std::string& caption) {
  entries_.push_back(std::make_unique<MenuEntry>(caption));
  auto& entry = *entries_.back();
  if (bar_) entry.Show(*bar_, static_cast<int>(entries_.size()) - 1);
  return entry;
}

Gtk::MenuBar& MenuRoot::Bar() {
  if (!bar_) {
    bar_ = std::make_unique<Gtk::MenuBar>();
    int position = 0;
    for (const auto& entry : entries_) entry->Show(*bar_, position++);
    bar_->signal_deactivate().connect([this] { TellFocusLast(*bar_); });
    bar_->show();
  }
  return *bar_;
}

}  // namespace corvane::desktop
