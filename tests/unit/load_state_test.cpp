// In which order a navigation is begun and completed.
#include "web/LoadState.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

class LoadStateTest : public testing::Test {
 protected:
  std::string log_;
  LoadState state_{[this] { log_ += "b"; }, [this] { log_ += "c"; }};
};

TEST_F(LoadStateTest, OneNavigation) {
  state_.Requested();
  EXPECT_TRUE(state_.Busy());
  EXPECT_EQ(log_, "");
  state_.Started();
  state_.Committed();
  EXPECT_TRUE(state_.Finished());
  EXPECT_EQ(log_, "b");
  EXPECT_TRUE(state_.Busy());
  state_.Read();
  EXPECT_FALSE(state_.Busy());
  EXPECT_EQ(log_, "bc");
}

TEST_F(LoadStateTest, NotBusyAnyMoreWhenCompleteIsRaised) {
  bool busy = true;
  LoadState state([] {}, [&] { busy = state.Busy(); });
  state.Started();
  state.Finished();
  state.Read();
  EXPECT_FALSE(busy);
}

TEST_F(LoadStateTest, OvertakenNavigationIsCompletedFirst) {
  state_.Started();
  state_.Requested();
  EXPECT_FALSE(state_.Finished()) << "what the old one reports is ignored";
  state_.Started();
  EXPECT_EQ(log_, "bcb");
}

TEST_F(LoadStateTest, AReplacedPageIsTheSameNavigation) {
  state_.Started();
  state_.Replaced();
  EXPECT_FALSE(state_.Finished());
  state_.Started();
  EXPECT_TRUE(state_.Finished());
  state_.Read();
  EXPECT_EQ(log_, "bc");
}

TEST_F(LoadStateTest, AReplacedPageAfterItsNavigationBeginsOneOfItsOwn) {
  state_.Replaced();
  state_.Started();
  state_.Finished();
  state_.Read();
  EXPECT_EQ(log_, "bc");
}

TEST_F(LoadStateTest, AJumpWithinThePageRaisesNothing) {
  state_.Requested();
  EXPECT_TRUE(state_.Idle());
  state_.Read();
  EXPECT_FALSE(state_.Busy());
  EXPECT_EQ(log_, "");
}

}  // namespace
}  // namespace corvane
