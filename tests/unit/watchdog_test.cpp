#include "web/Watchdog.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/fakes/fake_time.h"

namespace corvane {
namespace {

constexpr double kNever = 3600;  // seconds

class WatchdogTest : public testing::Test {
 protected:
  void RunLoop() { time_.Pass(0); }
  /// A page handles what it is given in turn.
  void Answer(std::size_t ping) {
    pings_.at(ping)();
    RunLoop();
  }
  void GiveEvent() {
    watchdog_.WatchSoon();
    RunLoop();
  }

  fakes::FakeTime time_;
  std::vector<Watchdog::Answer> pings_;
  bool loading_ = false;
  int warnings_ = 0;
  int ends_ = 0;
  Watchdog::Limits limits_{kNever, kNever, 0, kNever};
  Watchdog watchdog_{limits_,
                     time_.AsLater(),
                     [this](Watchdog::Answer answer) { pings_.push_back(std::move(answer)); },
                     [this] { return loading_; },
                     [this] { ++warnings_; },
                     [this] { ++ends_; }};
};

TEST_F(WatchdogTest, OnePingIsUnderWayAtATime) {
  watchdog_.Watch();
  watchdog_.Watch();
  EXPECT_EQ(pings_.size(), 1U);
  Answer(0);
  EXPECT_EQ(pings_.size(), 1U);
  watchdog_.Watch();
  EXPECT_EQ(pings_.size(), 2U);
}

TEST_F(WatchdogTest, APageThatLoadsIsAskedAgainAndAgain) {
  loading_ = true;
  watchdog_.Watch();
  Answer(0);
  Answer(1);
  EXPECT_EQ(pings_.size(), 3U);
}

TEST_F(WatchdogTest, TheAnswerToAnEarlierPingIsNoneToAnEvent) {
  watchdog_.Watch();
  GiveEvent();
  EXPECT_EQ(pings_.size(), 1U);
  Answer(0);
  EXPECT_EQ(pings_.size(), 2U) << "sent behind the event";
  Answer(1);
  EXPECT_EQ(pings_.size(), 2U);
}

TEST_F(WatchdogTest, AnAnswerJustBeforeAnEventIsGivenIsNoneToIt) {
  watchdog_.Watch();
  watchdog_.WatchSoon();
  Answer(0);
  EXPECT_EQ(pings_.size(), 2U);
}

TEST_F(WatchdogTest, WhoLeavesAPageThatHangsByTheLastEventNeedNotWaitLong) {
  limits_ = {0, kNever, 0, kNever};
  Watchdog watchdog(
      limits_, time_.AsLater(),
      [this](Watchdog::Answer answer) { pings_.push_back(std::move(answer)); },
      [] { return false; }, [this] { ++warnings_; }, [this] { ++ends_; });
  watchdog.Watch();
  watchdog.WatchSoon();
  watchdog.Hurry();
  pings_.at(0)();
  ASSERT_EQ(pings_.size(), 2U);
  RunLoop();
  EXPECT_EQ(ends_, 1);
  EXPECT_EQ(warnings_, 0) << "where the user goes is all that is said";
}

TEST_F(WatchdogTest, AnAnswerAfterTheResetIsLeftOut) {
  watchdog_.Watch();
  GiveEvent();
  watchdog_.Reset();
  Answer(0);
  EXPECT_EQ(pings_.size(), 1U);
}

TEST_F(WatchdogTest, ThePageIsGivenUpSomeTimeAfterTheUserHasBeenTold) {
  limits_ = {5, 15, 1, kNever};
  Watchdog watchdog(
      limits_, time_.AsLater(), [this](Watchdog::Answer answer) { pings_.push_back(answer); },
      [this] { return loading_; }, [this] { ++warnings_; }, [this] { ++ends_; });
  watchdog.Watch();
  time_.Pass(4.9);
  EXPECT_EQ(warnings_, 0);
  time_.Pass(0.1);
  EXPECT_EQ(warnings_, 1);
  EXPECT_TRUE(watchdog.Warned());
  time_.Pass(9.9);
  EXPECT_EQ(ends_, 0);
  time_.Pass(0.1);
  EXPECT_EQ(ends_, 1);
  EXPECT_FALSE(watchdog.Warned());
  time_.Pass(kNever);
  EXPECT_EQ(ends_, 1) << "once";
}

TEST_F(WatchdogTest, APageThatLoadsHasFourTimesAsLong) {
  limits_ = {5, 15, 1, kNever};
  loading_ = true;
  Watchdog watchdog(
      limits_, time_.AsLater(), [this](Watchdog::Answer answer) { pings_.push_back(answer); },
      [this] { return loading_; }, [this] { ++warnings_; }, [this] { ++ends_; });
  watchdog.Watch();
  time_.Pass(59.9);
  EXPECT_EQ(ends_, 0);
  time_.Pass(0.1);
  EXPECT_EQ(ends_, 1);
}

}  // namespace
}  // namespace corvane
