#include "platform/linux/gtk/menu/menu_item_widgets.h"

#include <gtk/gtk-a11y.h>
#include <gtkmm/stylecontext.h>

#include <utility>

namespace corvane::desktop {
namespace {

constexpr const char* kDisabledKey = "corvane-disabled";
constexpr double kDim = 0.5;

using RefStateSet = AtkStateSet* (*)(AtkObject*);

// The states of the parent class, less those that a disabled item lacks.
template <int Kind>
struct StateFilter {
  static inline RefStateSet parent = nullptr;  // set once, when the class is made

  static AtkStateSet* States(AtkObject* object) {
    auto* states = parent(object);
    auto* widget = gtk_accessible_get_widget(GTK_ACCESSIBLE(object));
    if (widget && g_object_get_data(G_OBJECT(widget), kDisabledKey)) {
      atk_state_set_remove_state(states, ATK_STATE_ENABLED);
      atk_state_set_remove_state(states, ATK_STATE_SENSITIVE);
    }
    return states;
  }

  static void ClassInit(gpointer made, gpointer) {
    auto* atk_class = ATK_OBJECT_CLASS(made);
    parent = atk_class->ref_state_set;
    atk_class->ref_state_set = States;
  }

  // An accessible class on top of the toolkit's one for the item.
  static GType Type(const char* name, GType base) {
    if (const GType known = g_type_from_name(name)) return known;
    GTypeQuery query{};
    g_type_query(base, &query);
    return g_type_register_static_simple(base, name, query.class_size, ClassInit,
                                         query.instance_size, nullptr, GTypeFlags(0));
  }
};

void SetAccessibleType(Gtk::Widget& widget, GType type) {
  // The instance's class is the one that was made for this C++ class alone.
  gtk_widget_class_set_accessible_type(GTK_WIDGET_GET_CLASS(widget.gobj()), type);
}

}  // namespace

PlainMenuItem::PlainMenuItem(const Glib::ustring& mnemonic)
    : Glib::ObjectBase("corvane_PlainMenuItem"), Gtk::MenuItem(mnemonic, true) {
  SetAccessibleType(*this, StateFilter<0>::Type("CorvaneMenuItemAccessible",
                                                gtk_menu_item_accessible_get_type()));
}

MarkedMenuItem::MarkedMenuItem(const Glib::ustring& mnemonic)
    : Glib::ObjectBase("corvane_MarkedMenuItem"), Gtk::CheckMenuItem(mnemonic, true) {
  SetAccessibleType(*this, StateFilter<1>::Type("CorvaneCheckMenuItemAccessible",
                                                gtk_check_menu_item_accessible_get_type()));
}

void MarkedMenuItem::SetMark(bool marked) {
  if (get_active() == marked) return;
  setting_ = true;
  set_active(marked);
  setting_ = false;
}

void MarkedMenuItem::on_activate() {
  if (setting_) Gtk::CheckMenuItem::on_activate();
}

void ShowEnabled(Gtk::MenuItem& item, bool enabled) {
  auto* object = G_OBJECT(item.gobj());
  const bool before = g_object_get_data(object, kDisabledKey) == nullptr;
  if (before == enabled) return;
  g_object_set_data(object, kDisabledKey, enabled ? nullptr : object);
  if (auto* child = item.get_child()) child->set_opacity(enabled ? 1.0 : kDim);
  auto* accessible = gtk_widget_get_accessible(GTK_WIDGET(item.gobj()));
  atk_object_notify_state_change(accessible, ATK_STATE_ENABLED, enabled);
  atk_object_notify_state_change(accessible, ATK_STATE_SENSITIVE, enabled);
}

}  // namespace corvane::desktop
