#pragma once

#include <memory>

#include "platform/timer.h"

namespace corvane::desktop {

/// A Timer of the main loop. An interval of 0 never ticks.
class LoopTimer : public Timer {
 public:
  LoopTimer();
  ~LoopTimer() override;
  LoopTimer(const LoopTimer&) = delete;
  LoopTimer& operator=(const LoopTimer&) = delete;

  int Interval() const override;
  void SetInterval(int milliseconds) override;
  bool Enabled() const override;
  void SetEnabled(bool enabled) override;
  void TickSoon() override;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace corvane::desktop
