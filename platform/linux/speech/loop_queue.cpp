#include "platform/linux/speech/loop_queue.h"

#include <deque>
#include <mutex>
#include <utility>

#include "platform/linux/glib/later.h"

namespace corvane::desktop {

struct LoopQueue::State {
  std::mutex mutex;
  std::deque<std::function<void()>> calls;
  bool scheduled = false;
  bool closed = false;

  /// Has the main loop run one call. Each has a source of its own, so that a
  /// nested loop inside it is not kept from the next one.
  static void Schedule(const std::shared_ptr<State>& state) {
    state->scheduled = true;
    PostToLoop([state] { RunOne(state); });
  }

  static void RunOne(const std::shared_ptr<State>& state) {
    std::function<void()> call;
    {
      const std::lock_guard lock(state->mutex);
      state->scheduled = false;
      if (state->closed || state->calls.empty()) return;
      call = std::move(state->calls.front());
      state->calls.pop_front();
      if (!state->calls.empty()) Schedule(state);
    }
    call();
  }
};

LoopQueue::LoopQueue() : state_(std::make_shared<State>()) {}

LoopQueue::~LoopQueue() {
  std::deque<std::function<void()>> dropped;  // destroyed after the lock is gone
  const std::lock_guard lock(state_->mutex);
  state_->closed = true;
  dropped.swap(state_->calls);
}

void LoopQueue::Post(std::function<void()> call) {
  const std::lock_guard lock(state_->mutex);
  state_->calls.push_back(std::move(call));
  if (!state_->scheduled) State::Schedule(state_);
}

}  // namespace corvane::desktop
