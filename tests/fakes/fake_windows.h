#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/hooks.h"
#include "platform/windows.h"

namespace corvane::fakes {

/// A window registry that the test fills.
class FakeWindows : public Windows {
 public:
  struct Window {
    std::string text;
    std::string class_name;
    WindowHandle parent = 0;
    std::uint32_t style = 0;
    int pixel_height = 20;
    int order = 0;
    WindowHandle owner = 0;
  };

  FakeWindows() { first_thread_window = Add("Corvane root", "Root"); }

  WindowHandle Add(const std::string& text, const std::string& class_name,
                   WindowHandle parent = 0) {
    const WindowHandle handle = ++last_;
    windows[handle] = Window{text, class_name, parent, 0, 20, ++order_};
    return handle;
  }
  void Remove(WindowHandle window) { windows.erase(window); }

  WindowHandle FirstThreadWindow() const override { return first_thread_window; }
  std::uint32_t ProcessId(WindowHandle window) const override {
    return windows.count(window) != 0 ? process_id : 0;
  }
  WindowHandle FindWindow(const std::string& caption) const override {
    for (const auto& [handle, window] : windows) {
      if (window.parent == 0 && window.text == caption) return handle;
    }
    return 0;
  }
  std::string Text(WindowHandle window) const override { return Get(window).text; }
  std::string ClassName(WindowHandle window) const override { return Get(window).class_name; }
  WindowHandle FirstChild(WindowHandle window) const override {
    WindowHandle first = 0;
    for (const auto& [handle, each] : windows) {
      if (each.parent == window && window != 0 &&
          (first == 0 || each.order < windows.at(first).order)) {
        first = handle;
      }
    }
    return first;
  }
  WindowHandle NextSibling(WindowHandle window) const override {
    const Window self = Get(window);
    WindowHandle next = 0;
    for (const auto& [handle, each] : windows) {
      if (each.parent == self.parent && each.order > self.order &&
          (next == 0 || each.order < windows.at(next).order)) {
        next = handle;
      }
    }
    return next;
  }
  WindowHandle Active() const override { return active; }
  WindowHandle Owner(WindowHandle window) const override { return Get(window).owner; }
  void SetParent(WindowHandle child, WindowHandle parent) override {
    windows[child].parent = parent;
    windows[child].order = ++order_;
    moves.emplace_back(child, parent);
  }
  void PostClose(WindowHandle window) override { closed.push_back(window); }
  std::uint32_t Style(WindowHandle window) const override { return Get(window).style; }
  void SetStyle(WindowHandle window, std::uint32_t style) override {
    windows[window].style = style;
  }
  int PixelHeight(WindowHandle window) const override { return Get(window).pixel_height; }
  void LockUpdate(WindowHandle window, bool locked) override { locks.emplace_back(window, locked); }

  std::map<WindowHandle, Window> windows;
  WindowHandle first_thread_window = 0;
  WindowHandle active = 0;
  std::uint32_t process_id = 1234;
  std::vector<WindowHandle> closed;
  std::vector<std::pair<WindowHandle, WindowHandle>> moves;
  std::vector<std::pair<WindowHandle, bool>> locks;

 private:
  Window Get(WindowHandle window) const {
    const auto at = windows.find(window);
    return at == windows.end() ? Window{} : at->second;
  }

  WindowHandle last_ = 100;
  int order_ = 0;
};

/// A hook that tells what the test tells it, switched on or not. `place` names
/// the newest while it lives.
template <class Port>
class FakeHook : public Port {
 public:
  explicit FakeHook(FakeHook*& place) : place_(place) { place_ = this; }
  ~FakeHook() override {
    if (place_ == this) place_ = nullptr;
    if (on_gone) on_gone();
  }
  void SetEnabled(bool value) override {
    enabled = value;
    if (on_switch) on_switch(value);
  }
  bool Enabled() const override { return enabled; }

  bool enabled = false;
  std::function<void(bool)> on_switch;
  std::function<void()> on_gone;

 private:
  FakeHook*& place_;
};
using FakeActivationHook = FakeHook<ActivationHook>;
struct FakeKeyboardHook : FakeHook<KeyboardHook> {
  using FakeHook::FakeHook;
  bool IntoPassword() const override { return into_password; }
  bool into_password = false;
};
using FakeMessageHook = FakeHook<MessageHook>;

}  // namespace corvane::fakes
