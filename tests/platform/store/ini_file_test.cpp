#include "platform/linux/store/ini_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

TEST(IniFile, WhatIsNoTextBecomesTextAndStaysTheSameWhenWrittenAgain) {
  const auto values = ParseIni("[Settings]\n\xbeote=a\\.\xff\n%FF=x\n");
  ASSERT_TRUE(values.has_value());
  EXPECT_TRUE(values->contains({"Settings", "\xef\xbf\xbdote"}));
  EXPECT_EQ(ParseIni(FormatIni(*values)), values);
}

TEST(ReplaceFile, MakesAFolderAndAFileForTheirOwnerOnly) {
  namespace fs = std::filesystem;
  const test::TemporaryFolder folder;
  const std::string file = folder / "new/file";
  EXPECT_TRUE(ReplaceFile(file, "one"));
  EXPECT_TRUE(ReplaceFile(file, "two"));
  EXPECT_EQ(test::ContentOf(file), "two");
  EXPECT_EQ(fs::status(folder / "new").permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_FALSE(ReplaceFile("/proc/none/file", "x"));
}

}  // namespace
}  // namespace corvane::desktop
