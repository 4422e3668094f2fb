#include "platform/linux/gtk/layout/clip_box.h"

#include <gdkmm/window.h>

#include <algorithm>

namespace corvane::desktop {

ClipBox::ClipBox() : Glib::ObjectBase("corvane_ClipBox") {
  set_has_window(true);
  set_redraw_on_allocate(false);
}

// Children outlive the box: they belong to their controls.
ClipBox::~ClipBox() {
  Removed = nullptr;
  while (!children_.empty()) remove(*children_.back());
}

void ClipBox::Allocate(Gtk::Widget& child, int left, int top, int width, int height) {
  int least = 0;
  int natural = 0;
  child.get_preferred_width(least, natural);
  width = std::max({width, least, 1});
  child.get_preferred_height_for_width(width, least, natural);
  height = std::max({height, least, 1});
  Gtk::Allocation place(left, top, width, height);
  child.size_allocate(place);
}

GType ClipBox::child_type_vfunc() const { return Gtk::Widget::get_type(); }

void ClipBox::on_add(Gtk::Widget* child) {
  children_.push_back(child);
  child->set_parent(*this);
}

void ClipBox::on_remove(Gtk::Widget* child) {
  const auto found = std::find(children_.begin(), children_.end(), child);
  if (found == children_.end()) return;
  children_.erase(found);
  const bool shown = child->get_visible() && get_visible();
  child->unparent();
  if (Removed) Removed(*child);
  if (shown) queue_resize();
}

void ClipBox::forall_vfunc(gboolean, GtkCallback callback, gpointer data) {
  const auto all = children_;  // the callback may remove the child
  for (auto* child : all) callback(child->gobj(), data);
}

Gtk::SizeRequestMode ClipBox::get_request_mode_vfunc() const {
  return Gtk::SIZE_REQUEST_CONSTANT_SIZE;
}

bool ClipBox::AnyShown() const {
  return std::any_of(children_.begin(), children_.end(),
                     [](const Gtk::Widget* child) { return child->get_visible(); });
}

int ClipBox::NaturalSize(Gtk::Orientation orientation) const {
  if (!AnyShown()) return 0;
  if (Natural) return std::max(1, Natural(orientation));
  int most = 1;
  for (auto* child : children_) {
    if (!child->get_visible()) continue;
    int minimum = 0;
    int natural = 0;
    if (orientation == Gtk::ORIENTATION_HORIZONTAL) {
      child->get_preferred_width(minimum, natural);
    } else {
      child->get_preferred_height(minimum, natural);
    }
    most = std::max(most, natural);
  }
  return most;
}

void ClipBox::get_preferred_width_vfunc(int& minimum, int& natural) const {
  minimum = AnyShown() ? 1 : 0;
  natural = NaturalSize(Gtk::ORIENTATION_HORIZONTAL);
}

void ClipBox::get_preferred_height_vfunc(int& minimum, int& natural) const {
  minimum = AnyShown() ? 1 : 0;
  natural = NaturalSize(Gtk::ORIENTATION_VERTICAL);
}

void ClipBox::on_realize() {
  set_realized();
  const auto place = get_allocation();
  GdkWindowAttr attributes{};
  attributes.window_type = GDK_WINDOW_CHILD;
  attributes.wclass = GDK_INPUT_OUTPUT;
  attributes.x = place.get_x();
  attributes.y = place.get_y();
  attributes.width = place.get_width();
  attributes.height = place.get_height();
  attributes.event_mask = static_cast<int>(get_events()) | GDK_EXPOSURE_MASK;
  auto window = Gdk::Window::create(get_parent_window(), &attributes, GDK_WA_X | GDK_WA_Y);
  set_window(window);
  register_window(window);
}

void ClipBox::on_size_allocate(Gtk::Allocation& allocation) {
  set_allocation(allocation);
  if (get_realized()) {
    get_window()->move_resize(allocation.get_x(), allocation.get_y(), allocation.get_width(),
                              allocation.get_height());
  }
  if (LayOut) {
    LayOut(allocation.get_width(), allocation.get_height());
    return;
  }
  for (auto* child : children_) {
    if (child->get_visible()) {
      Allocate(*child, 0, 0, allocation.get_width(), allocation.get_height());
    }
  }
}

}  // namespace corvane::desktop
