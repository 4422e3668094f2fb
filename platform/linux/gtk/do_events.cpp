#include "platform/linux/gtk/do_events.h"

#include <glib.h>

namespace corvane::desktop {
namespace {

constexpr gint64 kRest = 4000;  // microseconds between two drains

}  // namespace

void RunPendingEvents() {
  static gint64 last = 0;
  if (last != 0 && g_get_monotonic_time() - last < kRest) return;
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
  last = g_get_monotonic_time();
}

}  // namespace corvane::desktop
