#pragma once

#include <pulse/pulseaudio.h>

namespace corvane::desktop {

/// Holds the lock of libpulse's thread.
class MainLoopLock {
 public:
  explicit MainLoopLock(pa_threaded_mainloop* loop) : loop_(loop) {
    pa_threaded_mainloop_lock(loop_);
  }
  ~MainLoopLock() { pa_threaded_mainloop_unlock(loop_); }
  MainLoopLock(const MainLoopLock&) = delete;
  MainLoopLock& operator=(const MainLoopLock&) = delete;

 private:
  pa_threaded_mainloop* loop_;
};

}  // namespace corvane::desktop
