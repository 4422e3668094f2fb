#include "platform/linux/gtk/timer.h"

#include <glibmm/main.h>

#include <algorithm>

namespace corvane::desktop {

struct LoopTimer::State {
  LoopTimer* timer = nullptr;  // null once it is gone
  int interval = 0;
  bool enabled = false;
  sigc::connection source;
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
  if (!enabled || state_->interval == 0) return;
  // The handler may switch the timer off and on again, or destroy it: then this
  // source is disconnected and must not go on.
  state_->source = Glib::signal_timeout().connect(
      [weak = std::weak_ptr<State>(state_)] {
        if (const auto state = weak.lock(); state && state->timer) {
          state->timer->Tick.Raise();
          return state->timer != nullptr;
        }
        return false;
      },
      static_cast<unsigned>(state_->interval));
}

}  // namespace corvane::desktop
