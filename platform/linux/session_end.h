#pragma once

#include <functional>
#include <vector>

#include <glib.h>

namespace corvane::desktop {

/// Hears that the user's session ends: a desktop that logs out asks its programs
/// to go with SIGTERM, a terminal that is closed with SIGHUP. Tells it once, from
/// the event loop; a second such signal ends the process at once.
class SessionEnd {
 public:
  explicit SessionEnd(std::function<void()> ended);
  ~SessionEnd();
  SessionEnd(const SessionEnd&) = delete;
  SessionEnd& operator=(const SessionEnd&) = delete;

 private:
  void Listen(int signal);
  void StopListening();

  std::function<void()> ended_;
  std::vector<guint> sources_;
};

}  // namespace corvane::desktop
