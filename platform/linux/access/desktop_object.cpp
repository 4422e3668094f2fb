#include "platform/linux/access/desktop_object.h"

#include <gtk/gtk.h>

namespace corvane::desktop {
namespace {

constexpr const char* kName = "Desktop";
constexpr int kWindowRole = 9;

}  // namespace

std::vector<AccessiblePtr> DesktopObject::Windows() const {
  std::vector<AccessiblePtr> windows;
  AtkObject* root = atk_get_root();
  const int count = root != nullptr ? atk_object_get_n_accessible_children(root) : 0;
  for (int i = 0; i < count; ++i) {
    const ObjectPtr<AtkObject> window(atk_object_ref_accessible_child(root, i));
    if (window) windows.push_back(std::make_shared<LocalAccessible>(family_, window.get()));
  }
  if (const auto family = family_.lock()) {
    const auto others = family->OtherWindows();
    windows.insert(windows.end(), others.begin(), others.end());
  }
  return windows;
}

std::vector<AccessibleElement> DesktopObject::Children(int most) const {
  std::vector<AccessibleElement> children;
  for (auto& window : Windows()) {
    if (static_cast<int>(children.size()) < most) children.push_back({std::move(window), {}});
  }
  return children;
}

std::string DesktopObject::OwnText(AccessibleText which) const {
  return which == AccessibleText::Name ? kName : "";
}

int DesktopObject::OwnRole() const { return kWindowRole; }

ScreenRect DesktopObject::OwnLocation() const {
  GdkDisplay* display = gdk_display_get_default();
  GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
  if (monitor == nullptr) monitor = gdk_display_get_monitor(display, 0);
  if (monitor == nullptr) return {};
  GdkRectangle place;
  gdk_monitor_get_geometry(monitor, &place);
  return {place.x, place.y, place.width, place.height};
}

}  // namespace corvane::desktop
