#pragma once

#include <glib.h>
#include <malloc.h>

namespace corvane::desktop {

/// Gives the system back what the process has freed, ten seconds after the last call.
/// A large page, and its elements on their way to the accessibility bus, leave a heap
/// full of holes that the allocator keeps otherwise: after some hundred pages tens of
/// megabytes in each process.
inline void ReturnFreeMemorySoon() {
  constexpr guint kQuietSeconds = 10;
  static guint waiting = 0;
  if (waiting != 0) g_source_remove(waiting);
  waiting = g_timeout_add_seconds_full(
      G_PRIORITY_LOW, kQuietSeconds,
      [](gpointer) -> gboolean {
        waiting = 0;
        malloc_trim(0);
        return G_SOURCE_REMOVE;
      },
      nullptr, nullptr);
}

}  // namespace corvane::desktop
