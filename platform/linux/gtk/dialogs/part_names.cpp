#include "platform/linux/gtk/dialogs/part_names.h"

#include <string>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

// What the list's first column is called, as the eye reads it above the list.
std::string ListName(GtkTreeView* list) {
  std::string name = "Entries";
  const ListPtr columns(gtk_tree_view_get_columns(list));
  for (GList* link = columns.get(); link != nullptr; link = link->next) {
    const char* title = gtk_tree_view_column_get_title(GTK_TREE_VIEW_COLUMN(link->data));
    if (title == nullptr || *title == '\0') continue;
    name = title;
    break;
  }
  return name;
}

std::string NameFor(GtkWidget* part) {
  if (GTK_IS_TREE_VIEW(part)) return ListName(GTK_TREE_VIEW(part));
  if (GTK_IS_NOTEBOOK(part)) return "Tabs";
  if (GTK_IS_PANED(part)) return "Splitter";
  if (GTK_IS_SCROLLED_WINDOW(part)) return "Scrolling area";
  return "";
}

void NamePart(GtkWidget* part, gpointer /*unused*/) {
  AtkObject* accessible = gtk_widget_get_accessible(part);
  const char* present = atk_object_get_name(accessible);
  if (present == nullptr || *present == '\0') {
    const std::string name = NameFor(part);
    if (!name.empty()) atk_object_set_name(accessible, name.c_str());
  }
  if (GTK_IS_CONTAINER(part)) gtk_container_forall(GTK_CONTAINER(part), &NamePart, nullptr);
}

}  // namespace

void NameParts(GtkWidget* dialog) { NamePart(dialog, nullptr); }

}  // namespace corvane::desktop
