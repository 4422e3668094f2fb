#pragma once

#include "base/event.h"

namespace corvane::desktop {

/// A hook of that kind which listens to something while it is switched on.
template <typename Kind>
class SwitchedHook : public Kind {
 public:
  void SetEnabled(bool enabled) final {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    connection_ = enabled ? Listen() : Connection();
  }
  bool Enabled() const final { return enabled_; }

 private:
  virtual Connection Listen() = 0;

  bool enabled_ = false;
  Connection connection_;
};

}  // namespace corvane::desktop
