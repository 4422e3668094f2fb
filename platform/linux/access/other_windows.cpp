#include "platform/linux/access/other_windows.h"

#include <algorithm>
#include <utility>

namespace corvane::desktop {
namespace {

bool Contains(const ScreenRect& rect, ScreenPoint point) {
  return point.x >= rect.left && point.x < rect.left + rect.width && point.y >= rect.top &&
         point.y < rect.top + rect.height;
}

// The area that two rectangles share.
std::int64_t Shared(const ScreenRect& one, const ScreenRect& other) {
  const std::int64_t width =
      std::min(one.left + one.width, other.left + other.width) - std::max(one.left, other.left);
  const std::int64_t height =
      std::min(one.top + one.height, other.top + other.height) - std::max(one.top, other.top);
  return width > 0 && height > 0 ? width * height : 0;
}

// How well a window fits what the display knows; what counts most comes first.
// Titles count for more than places, which some programs do not tell.
struct Fit {
  bool process = false;
  bool title = false;
  std::int64_t shared = 0;
  auto operator<=>(const Fit&) const = default;
};

Fit FitOf(const OtherWindow& window, const StackedWindow& top) {
  return {top.process != 0 && window.process == top.process,
          !top.title.empty() && window.element.name == top.title, Shared(window.place, top.place)};
}

}  // namespace

const OtherWindow* WindowAt(const std::vector<OtherWindow>& windows,
                            const std::optional<StackedWindow>& top, ScreenPoint point) {
  const OtherWindow* best = nullptr;
  Fit best_fit;
  for (const auto& window : windows) {
    if (top) {
      const Fit fit = FitOf(window, *top);
      // Some programs run in a container, where they have another process number.
      const bool is_one = fit.process || (fit.title && fit.shared > 0);
      if (!is_one || (best != nullptr && fit <= best_fit)) continue;
      best = &window;
      best_fit = fit;
    } else if (Contains(window.place, point)) {
      const bool seen = (window.element.state & kStateInvisible) == 0;
      if (seen && (best == nullptr || (window.active && !best->active))) best = &window;
    }
  }
  return best;
}

void OtherWindows::Update(const std::vector<OtherWindow>& present) {
  std::map<WindowHandle, OtherWindow> now;
  for (const auto& window : present) {
    WindowHandle handle = HandleOf(window.element.ref);
    if (handle == 0) handle = ++last_;
    now[handle] = window;
  }
  windows_ = std::move(now);
}

const OtherWindow* OtherWindows::Find(WindowHandle window) const {
  const auto found = windows_.find(window);
  return found == windows_.end() ? nullptr : &found->second;
}

WindowHandle OtherWindows::HandleOf(const ElementRef& ref) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const auto& each) { return each.second.element.ref == ref; });
  return found == windows_.end() ? 0 : found->first;
}

std::vector<WindowHandle> OtherWindows::Handles() const {
  std::vector<WindowHandle> handles;
  for (const auto& [handle, window] : windows_) handles.push_back(handle);
  return handles;
}

std::vector<OtherWindow> OtherWindows::All() const {
  std::vector<OtherWindow> all;
  for (const auto& [handle, window] : windows_) all.push_back(window);
  return all;
}

}  // namespace corvane::desktop
