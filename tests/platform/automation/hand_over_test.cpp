#include "platform/linux/automation/hand_over.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/platform/automation/private_bus.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop::tests {
namespace {

TEST(GivenAddress, OfAnExistingFileBecomesAbsolute) {
  const test::TemporaryFolder folder;
  const std::string page = folder.Write("page.html", "x");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.Path());
  EXPECT_EQ(GivenAddress("page.html"), page);
  EXPECT_EQ(GivenAddress("./page.html"), page);
  std::filesystem::current_path(before);
}

TEST(GivenAddress, OfAnythingElseStaysAsItIs) {
  EXPECT_EQ(GivenAddress("https://example.org/a?b"), "https://example.org/a?b");
  EXPECT_EQ(GivenAddress("example.org"), "example.org");
  EXPECT_EQ(GivenAddress(""), "");
}

TEST(HandOver, FailsAtOnceWhenNoOtherCorvaneRuns) {
  const PrivateBus bus;
  ASSERT_EQ(setenv("DBUS_SESSION_BUS_ADDRESS", bus.Address().c_str(), 1), 0);
  EXPECT_FALSE(HandOver("https://example.org/"));
}

}  // namespace
}  // namespace corvane::desktop::tests
