#include "platform/linux/gtk/window_table.h"

#include <algorithm>

#include <gtkmm/container.h>
#include <gtkmm/window.h>
#include <unistd.h>

#include <limits>
#include <utility>

#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

WindowTable::WindowTable() {}

WindowTable::~WindowTable() { life_.End(); }

WindowHandle WindowTable::Add(Entry entry) {
  const WindowHandle handle = ++last_;
  windows_[handle] = Window{std::move(entry), 0, ++joins_, nullptr};
  return handle;
}

void WindowTable::Remove(WindowHandle window) {
  const Window* found = Find(window);
  if (found == nullptr) return;
  const bool top_level = IsTopLevel(*found);
  windows_.erase(window);
  for (auto& [handle, other] : windows_) {
    if (other.entry.parent != window) continue;
    other.entry.parent = 0;
    other.entry.child = true;
  }
  if (top_level) TopLevelGone.Raise();
}

bool WindowTable::IsTopLevel(const Window& window) {
  return window.entry.parent == 0 && !window.entry.child;
}

int WindowTable::TopLevelCount() const {
  return static_cast<int>(std::count_if(windows_.begin(), windows_.end(),
                                        [](const auto& each) { return IsTopLevel(each.second); }));
}

void WindowTable::Place(WindowHandle child, WindowHandle parent) {
  const auto found = windows_.find(child);
  if (found == windows_.end() || found->second.entry.parent == parent) return;
  found->second.entry.parent = parent;
  found->second.joined = ++joins_;
}

void WindowTable::SetAccept(WindowHandle window, std::function<void(Gtk::Widget&)> accept) {
  const auto found = windows_.find(window);
  if (found != windows_.end()) found->second.entry.accept = std::move(accept);
}

WindowHandle WindowTable::Parent(WindowHandle window) const {
  const auto* found = Find(window);
  return found ? found->entry.parent : 0;
}

Gtk::Widget* WindowTable::WidgetOf(WindowHandle window) const {
  const auto* found = Find(window);
  return found ? found->entry.widget : nullptr;
}

WindowHandle WindowTable::WindowAround(const GtkWidget* widget) const {
  for (auto* at = const_cast<GtkWidget*>(widget); at; at = gtk_widget_get_parent(at)) {
    for (const auto& [handle, window] : windows_) {
      if (window.entry.widget && window.entry.widget->gobj() == at) return handle;
    }
  }
  return 0;
}

WindowHandle WindowTable::WindowOf(GtkWindow* window) const {
  for (; window; window = gtk_window_get_transient_for(window)) {
    if (const auto handle = WindowAround(GTK_WIDGET(window))) return handle;
  }
  return 0;
}

const WindowTable::Window* WindowTable::Find(WindowHandle window) const {
  const auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : &found->second;
}

WindowHandle WindowTable::FirstThreadWindow() const {
  for (const auto& [handle, window] : windows_) {
    if (!window.entry.child && window.entry.parent == 0) return handle;
  }
  return 0;
}

std::uint32_t WindowTable::ProcessId(WindowHandle window) const {
  return Find(window) ? static_cast<std::uint32_t>(getpid()) : 0;
}

WindowHandle WindowTable::FindWindow(const std::string& caption) const {
  for (const auto& [handle, window] : windows_) {
    if (!window.entry.child && window.entry.parent == 0 && Text(handle) == caption) return handle;
  }
  return 0;
}

std::string WindowTable::Text(WindowHandle window) const {
  const auto* found = Find(window);
  return found && found->entry.text ? found->entry.text() : std::string();
}

std::string WindowTable::ClassName(WindowHandle window) const {
  const auto* found = Find(window);
  return found ? found->entry.class_name : std::string();
}

WindowHandle WindowTable::FirstChildAfter(WindowHandle parent, std::uint64_t joined) const {
  WindowHandle best = 0;
  auto best_joined = std::numeric_limits<std::uint64_t>::max();
  for (const auto& [handle, window] : windows_) {
    if (window.entry.parent != parent || window.joined <= joined || window.joined >= best_joined)
      continue;
    best = handle;
    best_joined = window.joined;
  }
  return best;
}

WindowHandle WindowTable::FirstChild(WindowHandle window) const {
  return Find(window) ? FirstChildAfter(window, 0) : 0;
}

WindowHandle WindowTable::NextSibling(WindowHandle window) const {
  const auto* found = Find(window);
  if (!found || found->entry.parent == 0) return 0;
  return FirstChildAfter(found->entry.parent, found->joined);
}

WindowHandle WindowTable::Active() const {
  WindowHandle active = 0;
  const ListPtr windows(gtk_window_list_toplevels());
  for (GList* each = windows.get(); each && active == 0; each = each->next) {
    auto* window = GTK_WINDOW(each->data);
    if (gtk_window_is_active(window) && gtk_widget_get_visible(GTK_WIDGET(window))) {
      active = WindowOf(window);
    }
  }
  if (active != 0) return active;
  // While a menu is open it has the keyboard, and no window is active.
  GtkWidget* grab = gtk_grab_get_current();
  GtkWidget* top = grab ? gtk_widget_get_toplevel(grab) : nullptr;
  return GTK_IS_WINDOW(top) ? WindowOf(GTK_WINDOW(top)) : 0;
}

WindowHandle WindowTable::Owner(WindowHandle window) const {
  const auto* found = Find(window);
  if (!found) return 0;
  if (found->entry.owner) return found->entry.owner();
  auto* top = found->entry.widget ? found->entry.widget->gobj() : nullptr;
  return GTK_IS_WINDOW(top) ? WindowOf(gtk_window_get_transient_for(GTK_WINDOW(top))) : 0;
}

void WindowTable::SetParent(WindowHandle child, WindowHandle parent) {
  const auto* moved = Find(child);
  const auto* target = Find(parent);
  if (!moved || !target || child == parent) return;
  for (auto above = target->entry.parent; above != 0; above = Parent(above)) {
    if (above == child) return;  // a window cannot go into its own child
  }
  Place(child, parent);
  auto* widget = moved->entry.widget;
  if (!widget || !target->entry.accept) return;
  if (auto* old = widget->get_parent()) old->remove(*widget);
  target->entry.accept(*widget);
}

void WindowTable::PostClose(WindowHandle window) {
  PostToLoop([this, window, here = life_.Look()] {
    if (!here) return;
    const auto* found = Find(window);
    if (!found || !found->entry.close) return;
    const auto close = found->entry.close;  // closing may remove the entry
    close();
  });
}

std::uint32_t WindowTable::Style(WindowHandle window) const {
  const auto* found = Find(window);
  return found ? found->style : 0;
}

void WindowTable::SetStyle(WindowHandle window, std::uint32_t style) {
  const auto found = windows_.find(window);
  if (found != windows_.end()) found->second.style = style;
}

int WindowTable::PixelHeight(WindowHandle window) const {
  auto* widget = WidgetOf(window);
  if (!widget) return 0;
  if (auto* top = dynamic_cast<Gtk::Window*>(widget)) {
    int width = 0;
    int height = 0;
    top->get_size(width, height);
    return height;
  }
  // Before its first layout a widget is as high as it would like to be.
  if (widget->get_allocated_height() > 1) return widget->get_allocated_height();
  int minimum = 0;
  int natural = 0;
  widget->get_preferred_height(minimum, natural);
  return natural;
}

void WindowTable::LockUpdate(WindowHandle window, bool locked) {
  const auto found = windows_.find(window);
  if (found == windows_.end()) return;
  auto& frozen = found->second.frozen;
  if (!locked) {
    frozen.reset();
    return;
  }
  auto* widget = found->second.entry.widget;
  if (frozen || !widget || !widget->get_realized()) return;
  auto* surface = GDK_WINDOW(g_object_ref(gtk_widget_get_window(widget->gobj())));
  gdk_window_freeze_updates(surface);
  frozen = std::shared_ptr<void>(surface, [](void* pointer) {
    auto* held = GDK_WINDOW(pointer);
    if (!gdk_window_is_destroyed(held)) gdk_window_thaw_updates(held);
    g_object_unref(held);
  });
}

}  // namespace corvane::desktop
