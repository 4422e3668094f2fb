#pragma once

#include "platform/hooks.h"
#include "platform/linux/gtk/hooks/switched_hook.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// An ActivationHook that listens to the window table.
class TableActivationHook : public SwitchedHook<ActivationHook> {
 public:
  explicit TableActivationHook(WindowTable& windows) : windows_(windows) {}

 private:
  Connection Listen() override {
    return windows_.WindowActivated.Connect(
        [this](WindowHandle window) { Activated.Raise(window); });
  }
  WindowTable& windows_;
};

}  // namespace corvane::desktop
