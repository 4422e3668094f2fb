// A small program of somebody else's, for tests that look at other programs'
// windows: a window with a button, a field and a list, and a dialog over it.
// Pressing the button changes the window's title.
#include <gtk/gtk.h>

#include <initializer_list>

namespace {

void OnPressed(GtkButton* /*button*/, gpointer window) {
  gtk_window_set_title(GTK_WINDOW(window), "Pressed");
}

GtkWidget* Fruit() {
  GtkWidget* list = gtk_list_box_new();
  gtk_list_box_set_selection_mode(GTK_LIST_BOX(list), GTK_SELECTION_MULTIPLE);
  for (const char* name : {"Apple", "Pear", "Plum", "Quince"}) {
    GtkWidget* row = gtk_list_box_row_new();
    gtk_container_add(GTK_CONTAINER(row), gtk_label_new(name));
    atk_object_set_name(gtk_widget_get_accessible(row), name);
    gtk_list_box_insert(GTK_LIST_BOX(list), row, -1);
  }
  atk_object_set_name(gtk_widget_get_accessible(list), "Fruit");
  return list;
}

}  // namespace

int main(int argc, char** argv) {
  gtk_init(&argc, &argv);
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_window_set_title(GTK_WINDOW(window), "Other program");
  gtk_window_set_default_size(GTK_WINDOW(window), 300, 250);
  GtkWidget* box = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
  GtkWidget* button = gtk_button_new_with_label("Press me");
  g_signal_connect(button, "clicked", G_CALLBACK(OnPressed), window);
  GtkWidget* field = gtk_entry_new();
  gtk_entry_set_text(GTK_ENTRY(field), "Ada");
  for (GtkWidget* each : {button, field, Fruit()}) {
    gtk_box_pack_start(GTK_BOX(box), each, TRUE, TRUE, 0);
  }
  gtk_container_add(GTK_CONTAINER(window), box);
  gtk_widget_show_all(window);
  gtk_window_move(GTK_WINDOW(window), 900, 100);

  GtkWidget* dialog = gtk_dialog_new_with_buttons(
      "A question", GTK_WINDOW(window), GTK_DIALOG_DESTROY_WITH_PARENT, "Maybe", 1, nullptr);
  gtk_widget_show_all(dialog);
  gtk_window_move(GTK_WINDOW(dialog), 900, 600);
  gtk_main();
}
