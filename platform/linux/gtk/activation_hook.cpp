#include "platform/linux/gtk/activation_hook.h"

namespace corvane::desktop {

void TableActivationHook::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  connection_.Disconnect();
  if (!enabled) return;
  connection_ =
      windows_.WindowActivated.Connect([this](WindowHandle window) { Activated.Raise(window); });
}

}  // namespace corvane::desktop
