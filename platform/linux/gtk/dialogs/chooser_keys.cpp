#include "platform/linux/gtk/dialogs/chooser_keys.h"

#include <gdk/gdkkeysyms.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

bool LeaveEntry(GtkWindow* dialog) {
  GtkWidget* focus = gtk_window_get_focus(dialog);
  if (!GTK_IS_ENTRY(focus)) return false;
  if (gtk_widget_get_ancestor(focus, GTK_TYPE_FILE_CHOOSER_WIDGET) == nullptr) return false;
  gtk_widget_child_focus(GTK_WIDGET(dialog), GTK_DIR_TAB_FORWARD);
  return true;
}

// Selecting the folder shows it among those beside it.
bool GoUp(GtkWindow* dialog) {
  if (!GTK_IS_FILE_CHOOSER(dialog)) return false;
  auto* chooser = GTK_FILE_CHOOSER(dialog);
  const ObjectPtr<GFile> folder(gtk_file_chooser_get_current_folder_file(chooser));
  return folder && gtk_file_chooser_select_file(chooser, folder.get(), nullptr) != FALSE;
}

// Of the labels in the bubble only that of a problem is no button's and no field's.
void FindProblem(GtkWidget* widget, gpointer found) {
  if (GTK_IS_LABEL(widget)) {
    if (gtk_label_get_mnemonic_widget(GTK_LABEL(widget)) == nullptr)
      *static_cast<GtkLabel**>(found) = GTK_LABEL(widget);
  } else if (GTK_IS_CONTAINER(widget) && !GTK_IS_BUTTON(widget)) {
    gtk_container_forall(GTK_CONTAINER(widget), &FindProblem, found);
  }
}

}  // namespace

GtkLabel* NewFolderProblem(GtkWindow* dialog) {
  GtkLabel* problem = nullptr;
  GtkWidget* focus = gtk_window_get_focus(dialog);
  if (focus == nullptr) return problem;
  GtkWidget* bubble = gtk_widget_get_ancestor(focus, GTK_TYPE_POPOVER);
  if (bubble != nullptr) FindProblem(bubble, &problem);
  return problem;
}

bool ChooserTakesKey(GtkWindow* dialog, const GdkEventKey& event) {
  const guint pressed = event.state & gtk_accelerator_get_default_mod_mask();
  if (event.keyval == GDK_KEY_Tab && pressed == 0) return LeaveEntry(dialog);
  if (event.keyval == GDK_KEY_Up && pressed == GDK_MOD1_MASK) return GoUp(dialog);
  return false;
}

}  // namespace corvane::desktop
