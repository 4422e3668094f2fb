#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/later.h"

namespace corvane::contract {

/// What everybody may rely on who asks for something later (platform/later.h). `Time` is
/// one that has it: AsLater() gives it, Pass() lets some seconds pass.
template <class Time>
class LaterContract : public testing::Test {
 protected:
  static constexpr double kMoment = 0.005;  ///< seconds

  std::shared_ptr<void> Log(const std::string& what, double seconds) {
    return later_(seconds, [this, what] { log_ += what; });
  }

  Time time_;
  Later later_ = time_.AsLater();
  std::string log_;
  std::shared_ptr<void> kept_;
};

TYPED_TEST_SUITE_P(LaterContract);

TYPED_TEST_P(LaterContract, RunsOnceAndNeverWithinTheCall) {
  this->kept_ = this->Log("a", 0);
  EXPECT_EQ(this->log_, "");
  this->time_.Pass(0);
  EXPECT_EQ(this->log_, "a");
  this->time_.Pass(2 * this->kMoment);
  EXPECT_EQ(this->log_, "a");
}

TYPED_TEST_P(LaterContract, RunsWhenItsTimeHasCome) {
  this->kept_ = this->Log("a", this->kMoment);
  this->time_.Pass(0);
  EXPECT_EQ(this->log_, "");
  this->time_.Pass(this->kMoment);
  EXPECT_EQ(this->log_, "a");
}

TYPED_TEST_P(LaterContract, LettingGoForgetsIt) {
  this->kept_ = this->Log("a", 0);
  this->kept_.reset();
  this->time_.Pass(this->kMoment);
  EXPECT_EQ(this->log_, "");
}

TYPED_TEST_P(LaterContract, OneInAnothersPlaceForgetsTheFirst) {
  this->kept_ = this->Log("a", 0);
  this->kept_ = this->Log("b", 0);
  this->time_.Pass(this->kMoment);
  EXPECT_EQ(this->log_, "b");
}

TYPED_TEST_P(LaterContract, AnActionMayLetGoOfItself) {
  const auto alive = std::make_shared<int>(1);
  this->kept_ = this->later_(0, [this, alive] {
    this->kept_.reset();
    this->log_ += std::to_string(*alive);
  });
  this->time_.Pass(this->kMoment);
  EXPECT_EQ(this->log_, "1");
}

TYPED_TEST_P(LaterContract, AnActionMayAskForTheNext) {
  this->kept_ = this->later_(0, [this] {
    this->kept_ = this->Log("b", 0);
    this->log_ += "a";
  });
  this->time_.Pass(0);
  this->time_.Pass(this->kMoment);
  EXPECT_EQ(this->log_, "ab");
}

TYPED_TEST_P(LaterContract, WhatIsForgottenLetsGoOfAllThatItHeld) {
  const auto held = std::make_shared<int>();
  this->kept_ = this->later_(0, [held] {});
  this->kept_.reset();
  EXPECT_EQ(held.use_count(), 1);
}

REGISTER_TYPED_TEST_SUITE_P(LaterContract, RunsOnceAndNeverWithinTheCall, RunsWhenItsTimeHasCome,
                            LettingGoForgetsIt, OneInAnothersPlaceForgetsTheFirst,
                            AnActionMayLetGoOfItself, AnActionMayAskForTheNext,
                            WhatIsForgottenLetsGoOfAllThatItHeld);

}  // namespace corvane::contract
