#pragma once

#include "platform/hooks.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// An ActivationHook that listens to the window table.
class TableActivationHook : public ActivationHook {
 public:
  explicit TableActivationHook(WindowTable& windows) : windows_(windows) {}
  void SetEnabled(bool enabled) override;
  bool Enabled() const override { return enabled_; }

 private:
  WindowTable& windows_;
  bool enabled_ = false;
  Connection connection_;
};

}  // namespace corvane::desktop
