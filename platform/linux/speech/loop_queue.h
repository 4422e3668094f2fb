#pragma once

#include <functional>
#include <memory>

namespace corvane::desktop {

/// Carries calls from any thread to the user-interface thread, in their order,
/// ahead of drawing and timers. A nested main loop goes on with the rest of the
/// queue. What has not run when the queue goes never runs.
class LoopQueue {
 public:
  LoopQueue();
  ~LoopQueue();  ///< on the user-interface thread; may happen inside a posted call
  LoopQueue(const LoopQueue&) = delete;
  LoopQueue& operator=(const LoopQueue&) = delete;

  /// Runs `call` from the main loop, never from inside Post.
  void Post(std::function<void()> call);

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace corvane::desktop
