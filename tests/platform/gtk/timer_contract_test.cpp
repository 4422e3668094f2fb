// The main loop's timer keeps what the port promises.
#include "tests/contract/timer_contract.h"

#include <glib.h>

#include "platform/linux/gtk/timer.h"

namespace corvane::contract {
namespace {

class LoopTimerMaker {
 public:
  static constexpr int kInterval = 5;
  Timer& Get() { return timer_; }
  /// Each longer than the timer's interval, and asked for after its next tick was.
  void Pass() {
    bool over = false;
    g_timeout_add(
        4 * kInterval,
        +[](gpointer flag) -> gboolean {
          *static_cast<bool*>(flag) = true;
          return G_SOURCE_REMOVE;
        },
        &over);
    while (!over) g_main_context_iteration(nullptr, TRUE);
  }

 private:
  desktop::LoopTimer timer_;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Loop, TimerContract, LoopTimerMaker);

}  // namespace corvane::contract
