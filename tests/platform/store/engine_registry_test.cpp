#include "platform/linux/store/engine_registry.h"

#include <gtest/gtest.h>

namespace corvane::desktop {
namespace {

constexpr std::uint32_t kCurrentUser = 0x80000001;
constexpr std::uint32_t kLocalMachine = 0x80000002;
constexpr const char* kKey = "SOFTWARE\\Microsoft\\Internet Explorer\\";

TEST(EngineRegistryTest, TheEngineCountsAsCurrent) {
  const EngineRegistry registry;
  const auto version = registry.QueryValue(kLocalMachine, kKey, "Version");
  ASSERT_TRUE(version);
  EXPECT_EQ(version->front(), '5');
  const auto build = registry.QueryValue(kLocalMachine, kKey, "Build");
  ASSERT_TRUE(build);
  EXPECT_EQ(std::stof(*build), 52516.19F);
}

TEST(EngineRegistryTest, CaseAndTrailingSeparatorDoNotMatter) {
  const EngineRegistry registry;
  EXPECT_TRUE(
      registry.QueryValue(kLocalMachine, "software\\MICROSOFT\\internet explorer", "version"));
}

TEST(EngineRegistryTest, EverythingElseIsAbsent) {
  const EngineRegistry registry;
  EXPECT_FALSE(registry.QueryValue(kCurrentUser, kKey, "Version"));
  EXPECT_FALSE(registry.QueryValue(kLocalMachine, kKey, "Path"));
  EXPECT_FALSE(registry.QueryValue(kLocalMachine, "SOFTWARE\\Microsoft\\", "Version"));
  EXPECT_FALSE(registry.QueryValue(kLocalMachine, "", "Version"));
}

}  // namespace
}  // namespace corvane::desktop
