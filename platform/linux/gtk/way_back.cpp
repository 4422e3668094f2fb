#include "platform/linux/gtk/way_back.h"

#include <algorithm>

namespace corvane::desktop {

Gtk::Window* ActiveWindow() {
  for (auto* window : Gtk::Window::list_toplevels()) {
    if (window->property_is_active() && window->get_visible()) return window;
  }
  return nullptr;
}

bool IsThere(Gtk::Window* window) {
  const auto all = Gtk::Window::list_toplevels();
  return window != nullptr && std::find(all.begin(), all.end(), window) != all.end();
}

// A dialog that follows another at once comes before the user is anywhere else.
void WayBack::Remember(const Gtk::Window* dialog, const Gtk::Window* owner) {
  owner_ = owner;
  Gtk::Window* active = ActiveWindow();
  if (active && active != dialog) from_ = active;
}

void WayBack::Go() const {
  if (from_ != owner_ && IsThere(from_) && from_->get_visible()) from_->present();
}

}  // namespace corvane::desktop
