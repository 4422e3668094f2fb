// Going away from a page that may hang, and closing its window.
#include "web/PageLeaving.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/fakes/fake_time.h"
#include "web/PageClosing.h"

namespace corvane {
namespace {

class PageLeavingTest : public testing::Test {
 protected:
  PageLeaving::Go To(const std::string& place) {
    return [this, place] { log_ += place; };
  }
  fakes::FakeTime time_;
  std::string log_;
  Watchdog watchdog_{{5, 15, 1, 1},        time_.AsLater(), [](const auto&) {},
                     [] { return false; }, [] {},           [this] { leaving_.EndPage(); }};
  PageLeaving leaving_{watchdog_, [this] { log_ += "!"; }};
};

TEST_F(PageLeavingTest, WhatTheUserWantsIsDoneAgainWhenThePageHangs) {
  watchdog_.Watch();
  leaving_.Leave(To("a"));
  EXPECT_EQ(log_, "a");
  time_.Pass(5);
  EXPECT_EQ(log_, "a!") << "sooner than a page that nobody leaves";
  const auto gone = leaving_.ProcessGone(true);
  EXPECT_TRUE(gone.hung);
  ASSERT_TRUE(gone.next);
  gone.next();
  EXPECT_EQ(log_, "a!a");
}

TEST_F(PageLeavingTest, APageThatIsKnownToHangIsEndedAtOnce) {
  watchdog_.Watch();
  time_.Pass(5);
  leaving_.Leave(To("a"));
  EXPECT_EQ(log_, "!");
}

TEST_F(PageLeavingTest, APageThatCrashesByItselfIsToldOf) {
  leaving_.Leave(To("a"));
  const auto gone = leaving_.ProcessGone(true);
  EXPECT_FALSE(gone.hung);
  EXPECT_FALSE(gone.next);
}

TEST_F(PageLeavingTest, NothingIsLeftToGoToOnceAPageHasCome) {
  leaving_.Leave(To("a"));
  leaving_.Arrived();
  leaving_.EndPage();
  EXPECT_FALSE(leaving_.ProcessGone(true).next);
}

TEST_F(PageLeavingTest, TheLastThingWantedWaitsForTheProblemsPage) {
  leaving_.ProblemLoads();
  leaving_.Leave(To("a"));
  leaving_.Leave(To("b"));
  EXPECT_EQ(log_, "");
  leaving_.Leave(leaving_.ProblemIsThere());
  EXPECT_EQ(log_, "b");
  EXPECT_FALSE(leaving_.ProblemIsThere());
}

class PageClosingTest : public testing::Test {
 protected:
  fakes::FakeTime time_;
  std::string log_;
  bool asks_ = false;
  PageClosing closing_{
      time_.AsLater(),
      {[this] { log_ += "ask "; }, [this] { log_ += "close "; }, [this] { return asks_; }}};
};

TEST_F(PageClosingTest, APageThatNobodyHasTouchedIsNotAsked) {
  EXPECT_TRUE(closing_.May());
  EXPECT_EQ(log_, "");
}

TEST_F(PageClosingTest, APageIsAskedOnceAndNotWaitedForLong) {
  closing_.Touched();
  EXPECT_FALSE(closing_.May());
  time_.Pass(1.9);
  EXPECT_EQ(log_, "ask ");
  time_.Pass(0.1);
  EXPECT_EQ(log_, "ask close ");
  EXPECT_TRUE(closing_.May()) << "no window is a trap";
}

TEST_F(PageClosingTest, WhileTheUserIsAskedTheWindowWaits) {
  closing_.Touched();
  EXPECT_FALSE(closing_.May());
  asks_ = true;
  time_.Pass(60);
  EXPECT_EQ(log_, "ask ");
  EXPECT_TRUE(closing_.Stay());
  EXPECT_FALSE(closing_.Stay());
}

TEST_F(PageClosingTest, APageThatAgreesIsClosedAfterThat) {
  closing_.Touched();
  EXPECT_FALSE(closing_.May());
  closing_.Agreed(false);
  EXPECT_EQ(log_, "ask ");
  time_.Pass(0);
  EXPECT_EQ(log_, "ask close ");
}

TEST_F(PageClosingTest, WhoGoesOnWorkingIsAskedAgain) {
  closing_.Touched();
  closing_.May();
  closing_.Stay();
  closing_.Worked();
  EXPECT_FALSE(closing_.May());
  EXPECT_EQ(log_, "ask ask ");
}

TEST_F(PageClosingTest, OnlyAPageThatAnotherOneHasOpenedClosesByItself) {
  closing_.Agreed(false);
  time_.Pass(1);
  EXPECT_EQ(log_, "");
  closing_.Agreed(true);
  time_.Pass(1);
  EXPECT_EQ(log_, "close ");
}

}  // namespace
}  // namespace corvane
