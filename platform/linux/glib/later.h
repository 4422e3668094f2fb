#pragma once

#include <glib.h>

#include <functional>
#include <memory>
#include <utility>

#include "platform/later.h"

namespace corvane::desktop {

/// When the loop runs what is posted.
enum class Turn : int {
  Next = G_PRIORITY_HIGH,              ///< before anything is drawn or another key is taken
  InTurn = G_PRIORITY_DEFAULT,         ///< as what happens meanwhile
  WhenIdle = G_PRIORITY_DEFAULT_IDLE,  ///< when nothing else is to do
};

/// Runs `action` once from the main loop, after the present event has been handled.
/// From any thread.
void PostToLoop(std::function<void()> action, Turn turn = Turn::Next);

/// The same from the loop of `context`, in turn.
void PostTo(GMainContext* context, std::function<void()> action);

/// Runs `action` once from the main loop itself, when no handler is at work that
/// lets events run in between: for what such a handler may still stand on.
void PostWhenNothingIsUnderWay(std::function<void()> action);

/// Runs `work` on a thread of its own, from where it may post what has come of it.
void OnWorker(std::function<void()> work);

/// As the product has them (platform/later.h).
std::shared_ptr<void> After(double seconds, std::function<void()> action);
void DoAside(Weight weight, std::function<std::function<void()>()> work);
Schedule LoopSchedule();

/// Runs something once, later, on the main loop. Starting it again or letting go
/// of it forgets what was to run.
class Delay {
 public:
  Delay() = default;
  Delay(const Delay&) = delete;
  Delay& operator=(const Delay&) = delete;
  ~Delay() { Cancel(); }

  void Start(double seconds, std::function<void()> run);
  void Cancel() {
    if (source_ != 0) g_source_remove(std::exchange(source_, 0));
  }
  bool Running() const { return source_ != 0; }

 private:
  std::function<void()> run_;
  guint source_ = 0;
};

}  // namespace corvane::desktop
