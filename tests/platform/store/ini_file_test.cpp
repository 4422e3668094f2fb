#include "platform/linux/store/ini_file.h"

#include <gtest/gtest.h>

namespace corvane::desktop {
namespace {

TEST(IniFile, WhatIsNoTextBecomesTextAndStaysTheSameWhenWrittenAgain) {
  const auto values = ParseIni("[Settings]\n\xbeote=a\\.\xff\n%FF=x\n");
  ASSERT_TRUE(values.has_value());
  EXPECT_TRUE(values->contains({"Settings", "\xef\xbf\xbdote"}));
  EXPECT_EQ(ParseIni(FormatIni(*values)), values);
}

}  // namespace
}  // namespace corvane::desktop
