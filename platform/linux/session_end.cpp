#include "platform/linux/session_end.h"

#include <glib-unix.h>

#include <csignal>
#include <utility>

namespace corvane::desktop {

SessionEnd::SessionEnd(std::function<void()> ended) : ended_(std::move(ended)) {
  Listen(SIGTERM);
  Listen(SIGHUP);
}

SessionEnd::~SessionEnd() { StopListening(); }

// Who starts a program so that it outlives its terminal has the signal ignored.
void SessionEnd::Listen(int signal) {
  struct sigaction present = {};
  if (sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN) return;
  sources_.push_back(g_unix_signal_add(
      signal,
      [](gpointer data) -> gboolean {
        auto* self = static_cast<SessionEnd*>(data);
        self->StopListening();
        self->ended_();
        return G_SOURCE_REMOVE;
      },
      this));
}

void SessionEnd::StopListening() {
  for (const guint source : std::exchange(sources_, {})) g_source_remove(source);
}

}  // namespace corvane::desktop
