#include "platform/linux/store/log.h"

#include <glib.h>
#include <gtest/gtest.h>

namespace corvane::desktop {
namespace {

TEST(Log, TellsMessagesButNoAddressesUnlessAskedTo) {
  EXPECT_EQ(ReadLogChoice("").level, LogChoice::Level::Message);
  EXPECT_FALSE(ReadLogChoice("").addresses);
  const LogChoice chosen = ReadLogChoice("debug,addresses");
  EXPECT_EQ(chosen.level, LogChoice::Level::Debug);
  EXPECT_TRUE(chosen.addresses);
  EXPECT_EQ(ReadLogChoice("loud,error").level, LogChoice::Level::Error);
}

TEST(Log, HidesAddressesAndPaths) {
  EXPECT_EQ(WithoutAddresses("Cannot load https://example.org/a?b=c, sorry"),
            "Cannot load (address) sorry");
  EXPECT_EQ(WithoutAddresses("\"file:///home/me/x\" \tand /home/me/letter.txt\n~/y"),
            "\"(address) \tand (address)\n(address)");
  EXPECT_EQ(WithoutAddresses("data:text/html,secret"), "(address)");
}

TEST(Log, LeavesWordsAlone) {
  EXPECT_EQ(WithoutAddresses(""), "");
  EXPECT_EQ(WithoutAddresses("Ready: 3 and/or 4 at 12:30"), "Ready: 3 and/or 4 at 12:30");
}

TEST(LogDeathTest, WritesWhatItsLevelTellsToStandardError) {
  const auto write = [](const char* choice) {
    setenv("CORVANE_LOG", choice, 1);
    StartLog();
    g_message("went to https://example.org/");
    g_debug("a detail");
    std::exit(0);
  };
  EXPECT_EXIT(write("debug"), ::testing::ExitedWithCode(0),
              "message .*: went to \\(address\\)\n.*a detail");
  EXPECT_EXIT(write("addresses"), ::testing::ExitedWithCode(0), "went to https://example.org/\n$");
  EXPECT_EXIT(write("warning"), ::testing::ExitedWithCode(0), "^$");
}

}  // namespace
}  // namespace corvane::desktop
