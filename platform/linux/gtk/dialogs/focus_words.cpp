#include "platform/linux/gtk/dialogs/focus_words.h"

#include <gtk/gtk.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

std::string WithoutColon(std::string name) {
  if (!name.empty() && name.back() == ':') name.pop_back();
  return name;
}

// The text of the first label inside.
std::string LabelInside(GtkWidget* widget) {
  if (GTK_IS_LABEL(widget)) return Text(gtk_label_get_text(GTK_LABEL(widget)));
  if (!GTK_IS_CONTAINER(widget)) return "";
  std::string found;
  const ListPtr children(gtk_container_get_children(GTK_CONTAINER(widget)));
  for (GList* link = children.get(); link && found.empty(); link = link->next) {
    if (gtk_widget_get_visible(GTK_WIDGET(link->data))) found = LabelInside(GTK_WIDGET(link->data));
  }
  return found;
}

// The label that stands beside the widget and leads to it.
std::string LabelBeside(GtkWidget* widget) {
  const ListPtr labels(gtk_widget_list_mnemonic_labels(widget));
  if (!labels || !GTK_IS_LABEL(labels->data)) return "";
  return WithoutColon(Text(gtk_label_get_text(GTK_LABEL(labels->data))));
}

std::string NameOf(GtkWidget* widget) {
  AtkObject* accessible = gtk_widget_get_accessible(widget);
  std::string name = Text(atk_object_get_name(accessible));
  if (name.empty()) name = LabelBeside(widget);
  if (name.empty()) name = LabelInside(widget);
  if (name.empty()) name = Text(gtk_widget_get_tooltip_text(widget));
  return WithoutColon(name);
}

bool IsHeading(GtkWidget* widget) {
  if (!GTK_IS_LABEL(widget) || gtk_label_get_mnemonic_widget(GTK_LABEL(widget))) return false;
  PangoAttrList* attributes = gtk_label_get_attributes(GTK_LABEL(widget));
  if (!attributes) return false;
  PangoAttrIterator* at = pango_attr_list_get_iterator(attributes);
  const PangoAttribute* weight = pango_attr_iterator_get(at, PANGO_ATTR_WEIGHT);
  const bool bold =
      weight && reinterpret_cast<const PangoAttrInt*>(weight)->value >= PANGO_WEIGHT_BOLD;
  pango_attr_iterator_destroy(at);
  return bold;
}

// The bold line that the toolkit's own dialogs write over a group, tied to it by
// nothing but its place.
std::string HeadingOver(GtkWidget* part) {
  GtkWidget* parent = gtk_widget_get_parent(part);
  if (!GTK_IS_BOX(parent)) return "";
  const ListPtr children(gtk_container_get_children(GTK_CONTAINER(parent)));
  const GList* at = g_list_find(children.get(), part);
  if (!at || !at->prev || !IsHeading(GTK_WIDGET(at->prev->data))) return "";
  return WithoutColon(Text(gtk_label_get_text(GTK_LABEL(at->prev->data))));
}

// What the group is called that the widget belongs to: the label of the nearest
// part around it that has one.
std::string GroupOf(GtkWidget* widget, const std::string& name) {
  GtkWidget* window = gtk_widget_get_toplevel(widget);
  for (GtkWidget* part = widget; part && part != window; part = gtk_widget_get_parent(part)) {
    for (const std::string& label : {LabelBeside(part), HeadingOver(part)}) {
      if (!label.empty() && label != name) return label;
    }
  }
  return "";
}

std::string FirstText(GtkTreeModel* model, GtkTreeIter* row) {
  for (int column = 0; column < gtk_tree_model_get_n_columns(model); ++column) {
    if (gtk_tree_model_get_column_type(model, column) != G_TYPE_STRING) continue;
    char* value = nullptr;
    gtk_tree_model_get(model, row, column, &value, -1);
    const std::string text = Taken(value);
    if (!text.empty()) return text;
  }
  return "";
}

// The first text of the row that the cursor is on.
std::string CursorRow(GtkTreeView* tree) {
  GtkTreePath* path = nullptr;
  gtk_tree_view_get_cursor(tree, &path, nullptr);
  GtkTreeModel* model = gtk_tree_view_get_model(tree);
  const Owned<GtkTreePath, gtk_tree_path_free> owner(path);
  GtkTreeIter row;
  const bool found = path && model && gtk_tree_model_get_iter(model, &row, path);
  return found ? FirstText(model, &row) : "";
}

// What a list that drops down shows.
std::string Chosen(GtkComboBox* combo) {
  GtkTreeIter row;
  if (!gtk_combo_box_get_active_iter(combo, &row)) return "";
  return FirstText(gtk_combo_box_get_model(combo), &row);
}

std::string CurrentTab(GtkNotebook* notebook) {
  GtkWidget* page = gtk_notebook_get_nth_page(notebook, gtk_notebook_get_current_page(notebook));
  return page ? Text(gtk_notebook_get_tab_label_text(notebook, page)) : "";
}

std::string Joined(const std::string& name, const std::string& rest) {
  return name.empty() ? rest : name + ", " + rest;
}

}  // namespace

std::string FocusWords(Gtk::Widget& widget) {
  GtkWidget* raw = widget.gobj();
  const std::string name = NameOf(raw);
  if (GTK_IS_ENTRY(raw)) {
    const std::string typed = Text(gtk_entry_get_text(GTK_ENTRY(raw)));
    return Joined(name, "edit box, " + (typed.empty() ? "empty" : typed));
  }
  if (GTK_IS_RADIO_BUTTON(raw)) {
    return Joined(Joined(GroupOf(raw, name), name),
                  gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(raw)) ? "choice, chosen"
                                                                       : "choice, not chosen");
  }
  if (GTK_IS_CHECK_BUTTON(raw)) {
    return Joined(name, gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(raw))
                            ? "check box, checked"
                            : "check box, not checked");
  }
  if (GtkWidget* combo = gtk_widget_get_ancestor(raw, GTK_TYPE_COMBO_BOX)) {
    const std::string chosen = Chosen(GTK_COMBO_BOX(combo));
    return Joined(NameOf(combo), chosen.empty() ? "list" : "list, " + chosen);
  }
  if (GTK_IS_BUTTON(raw))
    return Joined(GroupOf(raw, name), name.empty() ? "Button" : name + " Button");
  if (GTK_IS_NOTEBOOK(raw)) return CurrentTab(GTK_NOTEBOOK(raw)) + " tab";
  const bool of_chooser = gtk_widget_get_ancestor(raw, GTK_TYPE_FILE_CHOOSER_WIDGET) != nullptr;
  if (GTK_IS_LIST_BOX(raw) || (GTK_IS_TREE_VIEW(raw) && of_chooser)) {
    return Joined(name, "list");  // the chooser tells what is chosen
  }
  if (GTK_IS_TREE_VIEW(raw)) {
    const std::string row = CursorRow(GTK_TREE_VIEW(raw));
    return Joined(name, row.empty() ? "list" : "list, " + row);
  }
  return name;
}

}  // namespace corvane::desktop
