#include "platform/linux/gtk/timer.h"

#include <glibmm/main.h>

#include <algorithm>

namespace corvane::desktop {

struct LoopTimer::State : std::enable_shared_from_this<LoopTimer::State> {
  LoopTimer* timer = nullptr;  // null once it is gone
  int interval = 0;
  bool enabled = false;
  sigc::connection source;

  // The handler may switch the timer off and on again, or destroy it: then this
  // source is disconnected and must not go on.
  void Run() {
    source = Glib::signal_timeout().connect(
        [weak = weak_from_this()] {
          const auto state = weak.lock();
          return state != nullptr && state->RaiseTick();
        },
        static_cast<unsigned>(interval));
  }
  void RunSoon() {
    source.disconnect();
    source = Glib::signal_timeout().connect(
        [weak = weak_from_this()] {
          if (const auto state = weak.lock()) {
            state->source = {};  // this one, which ends
            if (state->interval > 0) state->Run();
            state->RaiseTick();
          }
          return false;
        },
        0);
  }

 private:
  bool RaiseTick() {
    if (timer != nullptr) timer->Tick.Raise();
    return timer != nullptr;
  }
};

LoopTimer::LoopTimer() : state_(std::make_shared<State>()) { state_->timer = this; }

LoopTimer::~LoopTimer() {
  state_->timer = nullptr;
  state_->source.disconnect();
}

int LoopTimer::Interval() const { return state_->interval; }

void LoopTimer::SetInterval(int milliseconds) { state_->interval = std::max(0, milliseconds); }

bool LoopTimer::Enabled() const { return state_->enabled; }

void LoopTimer::SetEnabled(bool enabled) {
  if (state_->enabled == enabled) return;
  state_->enabled = enabled;
  state_->source.disconnect();
  if (enabled && state_->interval > 0) state_->Run();
}

void LoopTimer::TickSoon() {
  if (state_->enabled) state_->RunSoon();
}

}  // namespace corvane::desktop
