#include "platform/linux/access/own_windows.h"

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

GtkWidget* FocusedWidget() {
  const ListPtr tops(gtk_window_list_toplevels());
  GtkWidget* focused = nullptr;
  for (GList* each = tops.get(); each != nullptr && focused == nullptr; each = each->next) {
    auto* top = GTK_WINDOW(each->data);
    if (gtk_window_is_active(top)) focused = gtk_window_get_focus(top);
  }
  return focused;
}

}  // namespace

std::optional<ElementRef> PlugOf(AtkObject* object) {
  if (!ATK_IS_SOCKET(object) || !atk_socket_is_occupied(ATK_SOCKET(object))) return {};
  const std::string id = Text(ATK_SOCKET(object)->embedded_plug_id);
  const auto colon = id.find(':', 1);  // a unique name begins with one
  if (colon == std::string::npos) return {};
  return ElementRef{id.substr(0, colon), id.substr(colon + 1)};
}

std::vector<GtkWidget*> OwnWindowsAt(ScreenPoint point, bool menus) {
  std::vector<GtkWidget*> found;
  const ListPtr tops(gtk_window_list_toplevels());
  for (GList* each = tops.get(); each != nullptr; each = each->next) {
    auto* widget = GTK_WIDGET(each->data);
    const bool is_menu = gtk_window_get_window_type(GTK_WINDOW(widget)) == GTK_WINDOW_POPUP;
    if (!gtk_widget_get_mapped(widget) || is_menu != menus) continue;
    AtkObject* top = gtk_widget_get_accessible(widget);
    if (ATK_IS_COMPONENT(top) &&
        atk_component_contains(ATK_COMPONENT(top), point.x, point.y, ATK_XY_SCREEN)) {
      found.push_back(widget);
    }
  }
  return found;
}

AtkObject* OwnElementAt(GtkWidget* top, ScreenPoint point) {
  AtkObject* found = ATK_OBJECT(g_object_ref(gtk_widget_get_accessible(top)));
  while (found != nullptr && ATK_IS_COMPONENT(found)) {
    AtkObject* inner = atk_component_ref_accessible_at_point(ATK_COMPONENT(found), point.x, point.y,
                                                             ATK_XY_SCREEN);
    if (inner == nullptr || inner == found) {
      if (inner != nullptr) g_object_unref(inner);
      break;
    }
    g_object_unref(found);
    found = inner;
  }
  return found;
}

ScreenPoint OriginOf(GtkWidget* widget) {
  ScreenPoint origin;
  GtkWidget* top = gtk_widget_get_toplevel(widget);
  GdkWindow* surface = gtk_widget_get_window(top);
  if (surface == nullptr ||
      !gtk_widget_translate_coordinates(widget, top, 0, 0, &origin.x, &origin.y)) {
    return {};
  }
  int left = 0;
  int upper = 0;
  gdk_window_get_origin(surface, &left, &upper);
  return {origin.x + left, origin.y + upper};
}

ScreenPoint PointerOnScreen() {
  ScreenPoint point;
  GdkSeat* seat = gdk_display_get_default_seat(gdk_display_get_default());
  gdk_device_get_position(gdk_seat_get_pointer(seat), nullptr, &point.x, &point.y);
  return point;
}

AtkObject* FocusedElement() {
  GtkWidget* focused = FocusedWidget();
  return focused != nullptr ? gtk_widget_get_accessible(focused) : nullptr;
}

ScreenPoint CaretInControl() {
  AtkObject* object = FocusedElement();
  GtkWidget* control = FocusedWidget();
  if (object == nullptr || !ATK_IS_TEXT(object) || !gtk_widget_is_drawable(control)) return {};
  ScreenRect caret;
  atk_text_get_character_extents(ATK_TEXT(object), atk_text_get_caret_offset(ATK_TEXT(object)),
                                 &caret.left, &caret.top, &caret.width, &caret.height,
                                 ATK_XY_SCREEN);
  const ScreenPoint origin = OriginOf(control);
  return {caret.left - origin.x, caret.top - origin.y};
}

}  // namespace corvane::desktop
