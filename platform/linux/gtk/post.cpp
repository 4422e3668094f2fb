#include "platform/linux/gtk/post.h"

#include <glibmm/main.h>

#include <utility>

namespace corvane::desktop {

void PostToLoop(std::function<void()> action) {
  Glib::signal_idle().connect_once(std::move(action), Glib::PRIORITY_HIGH);
}

void PostWhenNothingIsUnderWay(std::function<void()> action) {
  constexpr guint kAskAgain = 20;  // milliseconds
  g_timeout_add_full(
      G_PRIORITY_DEFAULT, kAskAgain,
      [](gpointer data) -> gboolean {
        if (g_main_depth() > 1) return G_SOURCE_CONTINUE;  // inside another handler
        (*static_cast<std::function<void()>*>(data))();
        return G_SOURCE_REMOVE;
      },
      new std::function<void()>(std::move(action)),
      [](gpointer data) { delete static_cast<std::function<void()>*>(data); });
}

}  // namespace corvane::desktop
