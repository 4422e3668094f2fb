#pragma once

#include <gtest/gtest.h>

#include "platform/timer.h"

namespace corvane::contract {

/// What everybody may rely on who has a timer (platform/timer.h). `Maker` gives one by
/// Get(); Pass() lets a little more than its `kInterval` (milliseconds) pass.
template <class Maker>
class TimerContract : public testing::Test {
 protected:
  TimerContract() {
    ticking_ = timer_.Tick.Connect([this] { ++ticks_; });
  }

  Maker maker_;
  Timer& timer_ = maker_.Get();
  int ticks_ = 0;
  Connection ticking_;
};

TYPED_TEST_SUITE_P(TimerContract);

TYPED_TEST_P(TimerContract, IsMadeDisabledAndDoesNotTickThen) {
  EXPECT_FALSE(this->timer_.Enabled());
  this->timer_.SetInterval(TypeParam::kInterval);
  EXPECT_EQ(this->timer_.Interval(), TypeParam::kInterval);
  this->timer_.TickSoon();
  this->maker_.Pass();
  EXPECT_EQ(this->ticks_, 0);
}

TYPED_TEST_P(TimerContract, TicksAgainAndAgainUntilItIsDisabled) {
  this->timer_.SetInterval(TypeParam::kInterval);
  this->timer_.SetEnabled(true);
  EXPECT_TRUE(this->timer_.Enabled());
  EXPECT_EQ(this->ticks_, 0) << "not within the call";
  this->maker_.Pass();
  this->maker_.Pass();
  EXPECT_GE(this->ticks_, 2);
  this->timer_.SetEnabled(false);
  const int before = this->ticks_;
  this->maker_.Pass();
  EXPECT_EQ(this->ticks_, before);
}

TYPED_TEST_P(TimerContract, WhoHearsOfATickMayDisableIt) {
  const Connection stops = this->timer_.Tick.Connect([this] { this->timer_.SetEnabled(false); });
  this->timer_.SetInterval(TypeParam::kInterval);
  this->timer_.SetEnabled(true);
  this->maker_.Pass();
  this->maker_.Pass();
  EXPECT_EQ(this->ticks_, 1);
  EXPECT_FALSE(this->timer_.Enabled());
}

TYPED_TEST_P(TimerContract, SoonIsNeverWithinTheCall) {
  this->timer_.SetInterval(TypeParam::kInterval);
  this->timer_.SetEnabled(true);
  this->timer_.TickSoon();
  EXPECT_EQ(this->ticks_, 0);
  this->maker_.Pass();
  EXPECT_GE(this->ticks_, 1);
  EXPECT_TRUE(this->timer_.Enabled());
}

REGISTER_TYPED_TEST_SUITE_P(TimerContract, IsMadeDisabledAndDoesNotTickThen,
                            TicksAgainAndAgainUntilItIsDisabled, WhoHearsOfATickMayDisableIt,
                            SoonIsNeverWithinTheCall);

}  // namespace corvane::contract
