#include "platform/linux/gtk/dialogs/chooser_keys.h"

#include <gdk/gdkkeysyms.h>

namespace corvane::desktop {

bool TabLeavesEntry(GtkWindow* dialog, const GdkEventKey& event) {
  const guint pressed = event.state & gtk_accelerator_get_default_mod_mask();
  if (event.keyval != GDK_KEY_Tab || pressed != 0) return false;
  GtkWidget* focus = gtk_window_get_focus(dialog);
  if (!GTK_IS_ENTRY(focus)) return false;
  if (gtk_widget_get_ancestor(focus, GTK_TYPE_FILE_CHOOSER_WIDGET) == nullptr) return false;
  gtk_widget_child_focus(GTK_WIDGET(dialog), GTK_DIR_TAB_FORWARD);
  return true;
}

}  // namespace corvane::desktop
