// What runs later on the real loop.
#include "platform/linux/glib/later.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "tests/contract/later_contract.h"

namespace corvane {
namespace {

/// The loop runs until something is due that was asked for last.
struct LoopTime {
  static Later AsLater() { return &desktop::After; }
  static void Pass(double seconds) {
    bool over = false;
    desktop::Delay end;
    end.Start(seconds, [&] { over = true; });
    while (!over) g_main_context_iteration(nullptr, TRUE);
  }
};

TEST(PostToLoop, RunsWhatComesFromAnotherThreadInItsTurn) {
  std::string log;
  std::thread([&] {
    desktop::PostToLoop([&] { log += "idle"; }, desktop::Turn::WhenIdle);
    desktop::PostToLoop([&] { log += "turn "; }, desktop::Turn::InTurn);
    desktop::PostToLoop([&] { log += "next "; });
  }).join();
  EXPECT_EQ(log, "");
  while (log.size() < std::string("next turn idle").size()) {
    g_main_context_iteration(nullptr, TRUE);
  }
  EXPECT_EQ(log, "next turn idle");
}

}  // namespace

namespace contract {

INSTANTIATE_TYPED_TEST_SUITE_P(Loop, LaterContract, LoopTime);

}  // namespace contract
}  // namespace corvane
