#include "platform/linux/access/desktop_windows.h"

#include <gtk/gtk.h>

#include <algorithm>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

std::uint32_t DesktopWindows::ProcessId(WindowHandle window) const {
  const OtherWindow* other = accessibility_.Others().Find(window);
  return other != nullptr ? other->process : own_.ProcessId(window);
}

std::string DesktopWindows::Text(WindowHandle window) const {
  const OtherWindow* other = accessibility_.Others().Find(window);
  return other != nullptr ? other->element.name : own_.Text(window);
}

std::string DesktopWindows::ClassName(WindowHandle window) const {
  const OtherWindow* other = accessibility_.Others().Find(window);
  return other != nullptr ? other->program : own_.ClassName(window);
}

WindowHandle DesktopWindows::FirstChild(WindowHandle window) const {
  if (window != 0) return own_.FirstChild(window);
  const auto tops = TopLevels();
  return tops.empty() ? 0 : tops.front();
}

WindowHandle DesktopWindows::NextSibling(WindowHandle window) const {
  if (own_.Parent(window) != 0) return own_.NextSibling(window);
  const auto tops = TopLevels();
  auto at = std::find(tops.begin(), tops.end(), window);
  return at == tops.end() || ++at == tops.end() ? 0 : *at;
}

int DesktopWindows::PixelHeight(WindowHandle window) const {
  const OtherWindow* other = accessibility_.Others().Find(window);
  return other != nullptr ? other->place.height : own_.PixelHeight(window);
}

// The program's own come first, in the order of their making.
std::vector<WindowHandle> DesktopWindows::TopLevels() const {
  std::vector<WindowHandle> tops;
  const ListPtr windows(gtk_window_list_toplevels());
  for (GList* each = windows.get(); each != nullptr; each = each->next) {
    const WindowHandle handle = own_.WindowAround(GTK_WIDGET(each->data));
    if (handle != 0) tops.push_back(handle);
  }
  std::sort(tops.begin(), tops.end());
  tops.erase(std::unique(tops.begin(), tops.end()), tops.end());
  const auto others = accessibility_.Others().Handles();
  tops.insert(tops.end(), others.begin(), others.end());
  return tops;
}

}  // namespace corvane::desktop
