#include "platform/linux/gtk/menu/title_letters.h"

#include <gdk/gdkkeysyms.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

guint LetterOf(GtkWidget* title) {
  GtkWidget* label = gtk_bin_get_child(GTK_BIN(title));
  return GTK_IS_LABEL(label) ? gtk_label_get_mnemonic_keyval(GTK_LABEL(label))
                             : static_cast<guint>(GDK_KEY_VoidSymbol);
}

// The title of that letter that follows the one whose menu is open; the first when
// that one has another letter. Null when no title has it.
GtkWidget* NextTitle(GtkMenuShell* bar, guint letter) {
  GtkWidget* open = gtk_menu_shell_get_selected_item(bar);
  GtkWidget* first = nullptr;
  GtkWidget* after = nullptr;
  bool passed = false;
  const ListPtr titles(gtk_container_get_children(GTK_CONTAINER(bar)));
  for (GList* link = titles.get(); link != nullptr; link = link->next) {
    auto* title = GTK_WIDGET(link->data);
    if (!gtk_widget_get_mapped(title) || LetterOf(title) != letter) continue;
    if (first == nullptr) first = title;
    if (passed && after == nullptr) after = title;
    if (title == open) passed = true;
  }
  return after != nullptr ? after : first;
}

// The bar that a menu hangs on at last; null for a menu that pops up by itself.
GtkMenuShell* BarOf(GtkWidget* menu) {
  while (GTK_IS_MENU(menu)) {
    GtkWidget* opener = gtk_menu_get_attach_widget(GTK_MENU(menu));
    menu = opener != nullptr ? gtk_widget_get_parent(opener) : nullptr;
  }
  return GTK_IS_MENU_BAR(menu) ? GTK_MENU_SHELL(menu) : nullptr;
}

gboolean OnLetter(GtkWidget* title, gboolean shared, gpointer /*unused*/) {
  GtkWidget* bar = gtk_widget_get_parent(title);
  if (!shared || !GTK_IS_MENU_BAR(bar)) return FALSE;
  gtk_widget_mnemonic_activate(NextTitle(GTK_MENU_SHELL(bar), LetterOf(title)), FALSE);
  return TRUE;
}

gboolean OnKey(GtkWidget* menu, GdkEventKey* event, gpointer /*unused*/) {
  if ((event->state & gtk_accelerator_get_default_mod_mask()) != GDK_MOD1_MASK) return FALSE;
  GtkMenuShell* bar = BarOf(menu);
  if (bar == nullptr) return FALSE;
  GtkWidget* title = NextTitle(bar, gdk_keyval_to_lower(event->keyval));
  if (title == nullptr || title == gtk_menu_shell_get_selected_item(bar)) return FALSE;
  gtk_widget_mnemonic_activate(title, FALSE);
  return TRUE;
}

}  // namespace

void AnswerLetters(GtkMenuItem* title) {
  g_signal_connect(title, "mnemonic-activate", G_CALLBACK(&OnLetter), nullptr);
}

void AnswerLetters(GtkMenu* submenu) {
  g_signal_connect(submenu, "key-press-event", G_CALLBACK(&OnKey), nullptr);
}

}  // namespace corvane::desktop
