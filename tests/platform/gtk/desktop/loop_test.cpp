#include <gtkmm/clipboard.h>

#include "platform/linux/glib/later.h"
#include "platform/linux/gtk/clipboard.h"
#include "platform/linux/gtk/do_events.h"
#include "platform/linux/gtk/timer.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

class LoopTest : public test::DesktopTest {};

TEST_F(LoopTest, ATimerTicksUntilItIsSwitchedOff) {
  LoopTimer timer;
  int ticks = 0;
  const auto listening = timer.Tick.Connect([&] {
    if (++ticks == 3) timer.SetEnabled(false);
  });
  EXPECT_FALSE(timer.Enabled());
  timer.SetInterval(1);
  EXPECT_EQ(timer.Interval(), 1);
  timer.SetEnabled(true);
  timer.SetEnabled(true);
  EXPECT_EQ(ticks, 0);
  WaitFor("three ticks", [&] { return ticks == 3; });
  EXPECT_FALSE(timer.Enabled());
  LoopTimer other;
  int later = 0;
  const auto waiting = other.Tick.Connect([&] { ++later; });
  other.SetInterval(2);
  other.SetEnabled(true);
  WaitFor("the other timer", [&] { return later == 5; });
  EXPECT_EQ(ticks, 3);
}

TEST_F(LoopTest, ATimerMayBeRestartedOrDestroyedByItsOwnTick) {
  auto timer = std::make_unique<LoopTimer>();
  int ticks = 0;
  const auto listening = timer->Tick.Connect([&] {
    timer->SetEnabled(false);
    timer->SetEnabled(true);
    if (++ticks == 3) timer.reset();
  });
  timer->SetInterval(1);
  timer->SetEnabled(true);
  WaitFor("the timer to go", [&] { return timer == nullptr; });
  EXPECT_EQ(ticks, 3);
}

TEST_F(LoopTest, ATickThatIsWantedSoonComesOnceAndTheOthersAtTheirInterval) {
  LoopTimer timer;
  int ticks = 0;
  const auto listening = timer.Tick.Connect([&] { ++ticks; });
  timer.TickSoon();  // disabled
  timer.SetInterval(100'000);
  timer.SetEnabled(true);
  timer.TickSoon();
  timer.TickSoon();
  EXPECT_EQ(ticks, 0) << "from within the call";
  WaitFor("the tick", [&] { return ticks == 1; });
  LoopTimer other;
  int later = 0;
  const auto waiting = other.Tick.Connect([&] {
    if (++later == 3) other.SetEnabled(false);
  });
  other.SetInterval(1);
  other.SetEnabled(true);
  other.TickSoon();
  WaitFor("the other timer", [&] { return later == 3; });
  EXPECT_EQ(ticks, 1);
  other.TickSoon();  // disabled again
  timer.TickSoon();
  timer.SetEnabled(false);
  bool ran = false;
  PostToLoop([&] { ran = true; });
  WaitFor("the loop", [&] { return ran; });
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(later, 3);
}

TEST_F(LoopTest, ATimerMayBeDestroyedByATickThatWasWantedSoon) {
  auto timer = std::make_unique<LoopTimer>();
  const auto listening = timer->Tick.Connect([&] { timer.reset(); });
  timer->SetInterval(1);
  timer->SetEnabled(true);
  timer->TickSoon();
  WaitFor("the timer to go", [&] { return timer == nullptr; });
}

TEST_F(LoopTest, AnIntervalOfZeroNeverTicks) {
  LoopTimer timer;
  const auto listening = timer.Tick.Connect([] { FAIL() << "ticked"; });
  timer.SetEnabled(true);
  EXPECT_TRUE(timer.Enabled());
  LoopTimer other;
  int ticks = 0;
  const auto waiting = other.Tick.Connect([&] { ++ticks; });
  other.SetInterval(1);
  other.SetEnabled(true);
  WaitFor("another timer", [&] { return ticks == 3; });
}

TEST_F(LoopTest, DoEventsRunsWhatIsWaitingAndComesBackFromWhatNeverEnds) {
  const auto endless = g_idle_add([](gpointer) -> gboolean { return G_SOURCE_CONTINUE; }, nullptr);
  bool ran = false;
  PendingEvents pending;
  PostToLoop([&] { ran = true; });
  WaitFor("DoEvents", [&] {
    pending.Run();
    return ran;
  });
  g_source_remove(endless);
}

TEST_F(LoopTest, PostedActionsRunInTheirOrder) {
  std::vector<int> order;
  PostToLoop([&] { order.push_back(1); });
  PostToLoop([&] { order.push_back(2); });
  EXPECT_TRUE(order.empty());
  Settle();
  EXPECT_THAT(order, testing::ElementsAre(1, 2));
}

TEST_F(LoopTest, TheClipboardKnowsItsOwnTextAndThatOfOthers) {
  SystemClipboard clipboard;
  clipboard.SetText("caf\xC3\xA9");
  EXPECT_EQ(clipboard.GetText(), "caf\xC3\xA9");
  clipboard.Clear();
  EXPECT_EQ(clipboard.GetText(), "");
  clipboard.SetText("ours");
  Settle();
  EXPECT_EQ(clipboard.GetText(), "ours");
  Gtk::Clipboard::get()->set_text("another's");
  WaitFor("the change", [&] { return clipboard.GetText() == "another's"; });
}

}  // namespace
}  // namespace corvane::desktop
