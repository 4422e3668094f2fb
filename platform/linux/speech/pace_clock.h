#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace corvane::desktop {

/// The time that paces sound where no device does. Tests bring their own.
class PaceClock {
 public:
  virtual ~PaceClock() = default;
  /// Seconds; only runs forward.
  virtual double Now() = 0;
  /// Waits until the clock shows `time` or `wake` was notified and `woken` is
  /// true. `lock` is held before, after and whenever `woken` is asked.
  virtual void WaitUntil(double time, std::unique_lock<std::mutex>& lock,
                         std::condition_variable& wake, const std::function<bool()>& woken) = 0;
};

/// The computer's own clock.
std::unique_ptr<PaceClock> MakeRealClock();

}  // namespace corvane::desktop
