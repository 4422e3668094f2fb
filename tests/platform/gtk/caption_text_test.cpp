#include <gtest/gtest.h>

#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

TEST(CaptionTextTest, TheAccessKeyIsMarkedAsTheToolkitDoes) {
  EXPECT_EQ(WithMnemonic("For&ward"), "For_ward");
  EXPECT_EQ(WithMnemonic("a_b"), "a__b");
  EXPECT_EQ(WithMnemonic("Salt && &Pepper"), "Salt & _Pepper");
  EXPECT_EQ(WithMnemonic("end&"), "end");
}

TEST(CaptionTextTest, ACaptionReadsWithoutItsMark) {
  EXPECT_EQ(WithoutMnemonic("For&ward"), "Forward");
  EXPECT_EQ(WithoutMnemonic("Salt && &Pepper"), "Salt & Pepper");
}

TEST(CaptionTextTest, LineEndsBecomeOneBlankEach) {
  EXPECT_EQ(OnOneLine("a\r\nb\nc\rd"), "a b c d");
}

}  // namespace
}  // namespace corvane::desktop
