#include "platform/linux/gtk/do_events.h"

#include <glib.h>

namespace corvane::desktop {
namespace {

constexpr gint64 kRest = 4000;  // microseconds between two drains
constexpr gint64 kMost = 8000;  // microseconds of one drain

}  // namespace

void PendingEvents::Run() {
  const gint64 start = g_get_monotonic_time();
  if (last_ != 0 && start - last_ < kRest) return;
  while (g_main_context_iteration(nullptr, FALSE)) {
    if (g_get_monotonic_time() - start > kMost) break;
  }
  last_ = g_get_monotonic_time();
}

void RunEventsFor(int milliseconds) {
  bool over = false;
  const guint source = g_timeout_add_full(
      G_PRIORITY_HIGH, static_cast<guint>(milliseconds),
      [](gpointer data) -> gboolean {
        *static_cast<bool*>(data) = true;
        return G_SOURCE_CONTINUE;
      },
      &over, nullptr);
  while (!over) g_main_context_iteration(nullptr, TRUE);
  g_source_remove(source);
}

}  // namespace corvane::desktop
