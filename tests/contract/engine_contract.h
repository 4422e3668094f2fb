#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/engine.h"

namespace corvane::contract {

/// What everybody may rely on who has a view of an engine (platform/engine.h). `Maker` gives
/// one by Get() and ends it by End(); Page() and Nobody() are addresses of a page and of a
/// server that takes no connections, and Wait() lets things happen until something holds.
template <class Maker>
class EngineContract : public testing::Test {
 protected:
  using Step = Engine::Step;

  EngineContract() {
    connections_ += Get().Stepped.Connect([this](Step step) {
      steps_.push_back(step);
      if (step == Step::Finished) loading_at_end_ = Get().IsLoading();
    });
    connections_ += Get().Failed.Connect([this](const LoadFault& fault) { fault_ = fault; });
  }
  Engine& Get() { return maker_.Get(); }
  void Go(const std::string& address) {
    Get().Load(address);
    ASSERT_TRUE(maker_.Wait([this] { return !steps_.empty() && steps_.back() == Step::Finished; }));
  }

  Maker maker_;
  std::vector<Step> steps_;
  bool loading_at_end_ = true;
  std::optional<LoadFault> fault_;
  Connections connections_;
};

TYPED_TEST_SUITE_P(EngineContract);

TYPED_TEST_P(EngineContract, ALoadIsUnderWayFromTheCallOnAndOverAtItsEnd) {
  EXPECT_FALSE(this->Get().IsLoading());
  EXPECT_EQ(this->Get().Address(), "");
  this->Get().Load(this->maker_.Page());
  EXPECT_TRUE(this->Get().IsLoading());
  this->steps_.clear();
  this->Go(this->maker_.Page());
  EXPECT_FALSE(this->loading_at_end_);
  EXPECT_EQ(this->Get().Address(), this->maker_.Page());
}

TYPED_TEST_P(EngineContract, StepsComeInTheirOrder) {
  this->Go(this->maker_.Page());
  const std::vector wanted = {Engine::Step::Started, Engine::Step::Committed,
                              Engine::Step::Finished};
  EXPECT_EQ(this->steps_, wanted);
  EXPECT_FALSE(this->fault_);
}

TYPED_TEST_P(EngineContract, AFailureIsToldBeforeAnythingIsShown) {
  this->Go(this->maker_.Nobody());
  ASSERT_TRUE(this->fault_);
  EXPECT_EQ(this->fault_->failure.kind, LoadFailure::Kind::Refused);
  EXPECT_EQ(this->fault_->address, this->maker_.Nobody());
  EXPECT_FALSE(this->fault_->halfway);
  EXPECT_EQ(std::count(this->steps_.begin(), this->steps_.end(), Engine::Step::Committed), 0);
}

TYPED_TEST_P(EngineContract, AnAnswerComesLaterAndOnce) {
  this->Go(this->maker_.Page());
  int answers = 0;
  this->Get().Evaluate("1", [&](const auto&) { ++answers; });
  EXPECT_EQ(answers, 0);
  ASSERT_TRUE(this->maker_.Wait([&] { return answers > 0; }));
  bool next = false;
  this->Get().Evaluate("1", [&](const auto&) { next = true; });
  ASSERT_TRUE(this->maker_.Wait([&] { return next; }));
  EXPECT_EQ(answers, 1);
}

TYPED_TEST_P(EngineContract, WhatFailsHasNoText) {
  this->Go(this->maker_.Page());
  std::optional<std::string> text = "none yet";
  this->Get().Evaluate("there.is.no.such.thing", [&](auto answer) { text = std::move(answer); });
  ASSERT_TRUE(this->maker_.Wait([&] { return text != "none yet"; }));
  EXPECT_FALSE(text.has_value());
}

TYPED_TEST_P(EngineContract, NoAnswerComesOnceTheViewHasGone) {
  this->Go(this->maker_.Page());
  this->connections_.Clear();
  for (int i = 0; i < 3; ++i) {
    this->Get().Evaluate("1", [](const auto&) { ADD_FAILURE() << "it has gone"; });
  }
  this->maker_.End();
  int turns = 0;
  EXPECT_TRUE(this->maker_.Wait([&] { return ++turns > 20; }));
}

TYPED_TEST_P(EngineContract, FromTheFirstPageNothingLeadsBack) {
  this->Go(this->maker_.Page());
  EXPECT_FALSE(this->Get().CanGo(Engine::Direction::Back));
  EXPECT_FALSE(this->Get().CanGo(Engine::Direction::Forward));
}

REGISTER_TYPED_TEST_SUITE_P(EngineContract, ALoadIsUnderWayFromTheCallOnAndOverAtItsEnd,
                            StepsComeInTheirOrder, AFailureIsToldBeforeAnythingIsShown,
                            AnAnswerComesLaterAndOnce, WhatFailsHasNoText,
                            NoAnswerComesOnceTheViewHasGone, FromTheFirstPageNothingLeadsBack);

}  // namespace corvane::contract
