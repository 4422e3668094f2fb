#include "platform/linux/web/tab_guard.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/window.h>

namespace corvane::desktop {
namespace {

bool is_tab(const GdkEventKey& event) {
  return event.keyval == GDK_KEY_Tab || event.keyval == GDK_KEY_ISO_Left_Tab;
}

}  // namespace

TabGuard::TabGuard(Gtk::Widget& view) : view_(view) {
  key_ = view_.signal_key_press_event().connect(
      [this](GdkEventKey* event) {
        if (is_tab(*event)) given_to_page_ = event->time;
        return false;
      },
      false);
  hierarchy_ = view_.signal_hierarchy_changed().connect([this](Gtk::Widget*) { WatchWindow(); });
  WatchWindow();
}

TabGuard::~TabGuard() {
  key_.disconnect();
  hierarchy_.disconnect();
  window_.disconnect();
}

void TabGuard::WatchWindow() {
  window_.disconnect();
  auto* window = dynamic_cast<Gtk::Window*>(view_.get_toplevel());
  if (window == nullptr) return;
  window_ = window->signal_key_press_event().connect(
      [this](GdkEventKey* event) {
        return is_tab(*event) && event->time != 0 && event->time == given_to_page_ &&
               !view_.has_focus();
      },
      false);
}

}  // namespace corvane::desktop
