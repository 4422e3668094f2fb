#pragma once

#include <gtk/gtk.h>

#include <optional>

#include "platform/linux/access/other_windows.h"

namespace corvane::desktop {

/// What lies uppermost at a point of the screen: one of the program's own
/// top-level windows, or another program's.
struct TopWindow {
  GtkWidget* own = nullptr;
  StackedWindow other;
};

/// Nothing when the display does not tell how its windows lie over each other, or
/// none lies there.
std::optional<TopWindow> TopWindowAt(ScreenPoint point);

}  // namespace corvane::desktop
