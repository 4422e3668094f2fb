#include "platform/linux/speech/loop_queue.h"

#include <gmock/gmock.h>

#include <thread>
#include <vector>

#include "tests/platform/speech/loop_wait.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

TEST(LoopQueue, RunsCallsFromTheLoopInTheirOrder) {
  LoopQueue queue;
  std::vector<int> seen;
  for (int i = 1; i <= 3; ++i) queue.Post([&seen, i] { seen.push_back(i); });
  EXPECT_TRUE(seen.empty());
  RunPending();
  EXPECT_THAT(seen, ElementsAre(1, 2, 3));
}

TEST(LoopQueue, CallsOfAnotherThreadRunOnTheLoopsThread) {
  LoopQueue queue;
  std::thread::id ran_on;
  std::thread([&] { queue.Post([&] { ran_on = std::this_thread::get_id(); }); }).join();
  EXPECT_EQ(ran_on, std::thread::id());
  RunPending();
  EXPECT_EQ(ran_on, std::this_thread::get_id());
}

TEST(LoopQueue, ANestedLoopGoesOnWithTheRest) {
  LoopQueue queue;
  std::vector<int> seen;
  queue.Post([&] {
    seen.push_back(1);
    RunPending();
    seen.push_back(3);
  });
  queue.Post([&] { seen.push_back(2); });
  RunPending();
  EXPECT_THAT(seen, ElementsAre(1, 2, 3));
}

TEST(LoopQueue, WhatHasNotRunWhenItGoesNeverRuns) {
  bool ran = false;
  {
    LoopQueue queue;
    queue.Post([&] { ran = true; });
  }
  RunPending();
  EXPECT_FALSE(ran);
}

TEST(LoopQueue, MayGoInsideACall) {
  auto queue = std::make_unique<LoopQueue>();
  bool ran = false;
  queue->Post([&] { queue.reset(); });
  queue->Post([&] { ran = true; });
  RunPending();
  EXPECT_EQ(queue, nullptr);
  EXPECT_FALSE(ran);
}

}  // namespace
}  // namespace corvane::desktop
