#include "platform/linux/gtk/post.h"

#include <glib.h>
#include <glibmm/exceptionhandler.h>

#include <utility>

namespace corvane::desktop {

void PostToLoop(std::function<void()> action) {
  auto* held = new std::function<void()>(std::move(action));
  g_idle_add_full(
      G_PRIORITY_HIGH,
      [](gpointer data) -> gboolean {
        try {
          (*static_cast<std::function<void()>*>(data))();
        } catch (...) {  // must not pass through the main loop's C code
          Glib::exception_handlers_invoke();
        }
        return G_SOURCE_REMOVE;
      },
      held, [](gpointer data) { delete static_cast<std::function<void()>*>(data); });
}

}  // namespace corvane::desktop
