#include "platform/linux/gtk/hooks/event_hooks.h"

#include <glibmm/exceptionhandler.h>

#include <algorithm>
#include <string>

#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/gtk/menu/menu_entry.h"
#include "platform/linux/gtk/virtual_key.h"
#include "platform/linux/gtk/widget_control.h"

namespace corvane::desktop {
namespace {

// Input methods mark the keys that they put back into the queue.
constexpr guint kFromInputMethod = GDK_MODIFIER_RESERVED_24_MASK | GDK_MODIFIER_RESERVED_25_MASK;

int PlaceInMenu(GtkWidget* item) {
  GtkWidget* menu = gtk_widget_get_parent(item);
  if (!GTK_IS_MENU_SHELL(menu)) return 0;
  const ListPtr items(gtk_container_get_children(GTK_CONTAINER(menu)));
  return g_list_index(items.get(), item);
}

// An item of the program's own menus, or of one that the toolkit or the page
// engine has opened.
MenuSelect Describe(GtkMenuItem* item) {
  MenuSelect select;
  select.flags = kMenuHilite;
  bool enabled = gtk_widget_is_sensitive(GTK_WIDGET(item)) != FALSE;
  bool checked =
      GTK_IS_CHECK_MENU_ITEM(item) && gtk_check_menu_item_get_active(GTK_CHECK_MENU_ITEM(item));
  if (const MenuEntry* entry = MenuEntry::Of(item)) {
    select.text = entry->Caption();
    select.item = entry->Id();
    enabled = entry->Enabled();
    checked = entry->Checked();
  } else if (const char* label = gtk_menu_item_get_label(item)) {
    select.text = label;
    if (gtk_menu_item_get_use_underline(item)) {
      select.text.erase(std::remove(select.text.begin(), select.text.end(), '_'),
                        select.text.end());
    }
  }
  if (!enabled) select.flags |= kMenuDisabled;
  if (checked) select.flags |= kMenuChecked;
  if (gtk_menu_item_get_submenu(item) != nullptr) {
    select.flags |= kMenuPopup;
    select.item = PlaceInMenu(GTK_WIDGET(item));
  }
  return select;
}

// Handlers called from the toolkit's C code must not throw into it.
template <class Body>
void Guarded(Body&& body) {
  try {
    body();
  } catch (...) {
    Glib::exception_handlers_invoke();
  }
}

}  // namespace

EventHooks::EventHooks() {
  gdk_event_handler_set(
      [](GdkEvent* event, gpointer self) { static_cast<EventHooks*>(self)->Handle(event); }, this,
      nullptr);
  // The class must exist before its signals can be named.
  g_type_class_unref(g_type_class_ref(GTK_TYPE_MENU_ITEM));
  g_type_class_unref(g_type_class_ref(GTK_TYPE_MENU_SHELL));
  select_signal_ = g_signal_lookup("select", GTK_TYPE_MENU_ITEM);
  deselect_signal_ = g_signal_lookup("deselect", GTK_TYPE_MENU_ITEM);
  cancel_signal_ = g_signal_lookup("cancel", GTK_TYPE_MENU_SHELL);
  select_hook_ = g_signal_add_emission_hook(select_signal_, 0, &OnSelect, this, nullptr);
  deselect_hook_ = g_signal_add_emission_hook(deselect_signal_, 0, &OnDeselect, this, nullptr);
  cancel_hook_ = g_signal_add_emission_hook(cancel_signal_, 0, &OnCancel, this, nullptr);
}

EventHooks::~EventHooks() {
  life_.End();
  g_signal_remove_emission_hook(select_signal_, select_hook_);
  g_signal_remove_emission_hook(deselect_signal_, deselect_hook_);
  g_signal_remove_emission_hook(cancel_signal_, cancel_hook_);
  gdk_event_handler_set([](GdkEvent* event, gpointer) { gtk_main_do_event(event); }, nullptr,
                        nullptr);
}

void EventHooks::Handle(GdkEvent* event) {
  if (event->type == GDK_KEY_PRESS && (event->key.state & kFromInputMethod) == 0) {
    Guarded([&] { KeyPressed.Raise(event->key); });
  }
  gtk_main_do_event(event);
}

gboolean EventHooks::OnSelect(GSignalInvocationHint*, guint, const GValue* values, gpointer self) {
  static_cast<EventHooks*>(self)->Tell(GTK_MENU_ITEM(g_value_get_object(&values[0])));
  return TRUE;  // goes on listening
}

void EventHooks::Tell(GtkMenuItem* item) {
  if (GTK_IS_SEPARATOR_MENU_ITEM(item)) return;
  ++selections_;
  Guarded([&] { MenuSelected.Raise(Describe(item)); });
}

// A submenu that is left leads back to the item that opened it, which has been
// highlighted all the time: the toolkit says nothing then.
gboolean EventHooks::OnDeselect(GSignalInvocationHint*, guint, const GValue* values,
                                gpointer self) {
  auto* hooks = static_cast<EventHooks*>(self);
  GtkWidget* menu = gtk_widget_get_parent(GTK_WIDGET(g_value_get_object(&values[0])));
  if (!GTK_IS_MENU(menu)) return TRUE;
  const std::shared_ptr<GtkWidget> kept = Held(menu);
  PostToLoop([kept, hooks, here = hooks->life_.Look(), selections = hooks->selections_] {
    if (!here || hooks->selections_ != selections) return;
    hooks->TellWhereASubmenuWasLeft(kept.get());
  });
  return TRUE;
}

void EventHooks::TellWhereASubmenuWasLeft(GtkWidget* submenu) {
  GtkWidget* opener = gtk_menu_get_attach_widget(GTK_MENU(submenu));
  if (!GTK_IS_MENU_ITEM(opener)) return;
  GtkWidget* outer = gtk_widget_get_parent(opener);
  if (!GTK_IS_MENU_SHELL(outer) || !gtk_widget_get_mapped(outer)) return;
  if (gtk_menu_shell_get_selected_item(GTK_MENU_SHELL(outer)) != opener) return;
  if (gtk_menu_shell_get_selected_item(GTK_MENU_SHELL(submenu)) != nullptr) return;
  Tell(GTK_MENU_ITEM(opener));
}

// Escape leaves a menu with nothing chosen, so nothing else would be said: the control
// behind it tells that the user is there again.
gboolean EventHooks::OnCancel(GSignalInvocationHint*, guint, const GValue*, gpointer) {
  PostToLoop([] {
    if (GTK_IS_MENU_SHELL(gtk_grab_get_current())) return;  // an outer menu is still open
    if (WidgetBinding* binding = WidgetBinding::Focused()) {
      Guarded([&] { binding->FocusIsBack(); });
    }
  });
  return TRUE;
}

Connection LinuxKeyboardHook::Listen() {
  return hooks_.KeyPressed.Connect(
      [this](const GdkEventKey& event) { KeyDown.Raise(Pressed(event)); });
}

Connection LinuxMessageHook::Listen() {
  return hooks_.MenuSelected.Connect(
      [this](const MenuSelect& select) { MenuSelected.Raise(select); });
}

}  // namespace corvane::desktop
