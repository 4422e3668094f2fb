#include "platform/linux/gtk/post.h"

#include <glibmm/main.h>

#include <utility>

namespace corvane::desktop {

void PostToLoop(std::function<void()> action) {
  Glib::signal_idle().connect_once(std::move(action), Glib::PRIORITY_HIGH);
}

}  // namespace corvane::desktop
