#pragma once

#include "base/event.h"

namespace corvane {

/// A repeating timer of the user-interface thread. Created disabled.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual int Interval() const = 0;
  /// Milliseconds between ticks; takes effect at the next start.
  virtual void SetInterval(int milliseconds) = 0;
  virtual bool Enabled() const = 0;
  /// Enabling an enabled timer changes nothing: its next tick comes when it
  /// would have come.
  virtual void SetEnabled(bool enabled) = 0;
  /// An enabled timer ticks as soon as the event loop comes to it, never from within
  /// this call, and then at its intervals again. Nothing for a disabled one.
  virtual void TickSoon() = 0;

  Event<> Tick;
};

}  // namespace corvane
