#pragma once

#include <cstdint>

namespace corvane::desktop {

/// Lets the events that are waiting run in between: once in a while, so that a
/// caller may ask after every small step.
class PendingEvents {
 public:
  /// Lets them run, without waiting for any, and returns after 8 ms at the latest:
  /// work that is always waiting, such as the layout of a long text, goes on at its
  /// own pace. Returns at once when the last call ended less than 4 ms ago.
  void Run();

 private:
  std::int64_t last_ = 0;  // microseconds; 0: never
};

/// Runs events for so many milliseconds and sleeps while there are none.
void RunEventsFor(int milliseconds);

}  // namespace corvane::desktop
