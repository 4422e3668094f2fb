#pragma once

#include <glib.h>

#include <functional>

namespace corvane::desktop {

/// Runs the main loop until `done`, which is asked again at least every few
/// milliseconds, since a worker's doing wakes no loop; false when it is not so after
/// half a minute, which only a broken program needs.
inline bool RunLoopUntil(const std::function<bool()>& done) {
  bool late = false;
  GSource* again = g_timeout_source_new(5);
  g_source_set_callback(
      again, [](void*) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr, nullptr);
  g_source_attach(again, nullptr);
  GSource* limit = g_timeout_source_new_seconds(30);
  g_source_set_callback(
      limit,
      [](void* flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_REMOVE;
      },
      &late, nullptr);
  g_source_attach(limit, nullptr);
  bool is_done = done();
  for (; !is_done && !late; is_done = done()) g_main_context_iteration(nullptr, TRUE);
  for (GSource* source : {limit, again}) {
    g_source_destroy(source);
    g_source_unref(source);
  }
  return is_done;
}

/// Runs what waits in the main loop, without waiting for more.
inline void RunPending() {
  while (g_main_context_iteration(nullptr, FALSE) != 0) {
  }
}

}  // namespace corvane::desktop
