#include "platform/linux/automation/hand_over.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/platform/automation/private_bus.h"

namespace corvane::desktop::tests {
namespace {

TEST(GivenAddress, OfAnExistingFileBecomesAbsolute) {
  const auto folder = std::filesystem::temp_directory_path() / "corvane-given-address";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "page.html") << "x";
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  EXPECT_EQ(GivenAddress("page.html"), (folder / "page.html").string());
  EXPECT_EQ(GivenAddress("./page.html"), (folder / "page.html").string());
  std::filesystem::current_path(before);
  std::filesystem::remove_all(folder);
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
