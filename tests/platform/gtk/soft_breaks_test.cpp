#include "platform/linux/gtk/text_pane/soft_breaks.h"

#include <gtest/gtest.h>

namespace corvane::desktop {
namespace {

const std::string kBreak = "\xE2\x80\xA9";

TEST(SoftBreaksTest, ShortTextStaysAsItIs) {
  EXPECT_EQ(SoftBreaks::Prepare("one\ntwo", 0), "one\ntwo");
  EXPECT_EQ(SoftBreaks::Prepare("", 0), "");
}

TEST(SoftBreaksTest, LineEndsBecomeLineFeeds) {
  EXPECT_EQ(SoftBreaks::Prepare("a\r\nb\rc\r\r\nd\r", 0), "a\nb\nc\n\nd\n");
  EXPECT_EQ(SoftBreaks::Prepare("a" + kBreak + "b", 0), "a\nb");
}

TEST(SoftBreaksTest, InvalidBytesBecomeReplacementCharacters) {
  EXPECT_EQ(SoftBreaks::Prepare("a\xFF", 0), "a\xEF\xBF\xBD");
}

TEST(SoftBreaksTest, ALongParagraphIsBrokenAtABlankAndStripsBack) {
  std::string text;
  while (text.size() < 10000) text += "word ";
  const auto broken = SoftBreaks::Prepare(text, 0);
  EXPECT_EQ(SoftBreaks::Strip(broken), text);
  const auto first = broken.find(kBreak);
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(broken[first - 1], ' ');
  EXPECT_LE(first, 3000U);
  EXPECT_EQ((broken.size() - text.size()) / kBreak.size(), 3U);
}

TEST(SoftBreaksTest, ALongWordIsBrokenBetweenCharacters) {
  std::string text;
  for (int i = 0; i < 4000; ++i) text += "\xC3\xA9";
  const auto broken = SoftBreaks::Prepare(text, 0);
  EXPECT_EQ(broken.find(kBreak), 6000U);
  EXPECT_EQ(SoftBreaks::Strip(broken), text);
}

TEST(SoftBreaksTest, ACombiningMarkStaysWithItsLetter) {
  const std::string text = std::string(3000, 'e') + "\xCC\x81" + std::string(10, 'x');
  const auto broken = SoftBreaks::Prepare(text, 0);
  EXPECT_EQ(broken.find(kBreak), 3002U);
}

TEST(SoftBreaksTest, WhatStandsInFrontCountsToo) {
  EXPECT_NE(SoftBreaks::Prepare(std::string(100, 'x'), 2950).find(kBreak), std::string::npos);
  EXPECT_EQ(SoftBreaks::Prepare("\n" + std::string(100, 'x'), 2950).find(kBreak),
            std::string::npos);
}

TEST(SoftBreaksTest, PositionsLeaveBreaksOut) {
  SoftBreaks breaks;
  breaks.Inserted(0, 8, "abc" + kBreak + "de" + kBreak + "f");  // offsets 3 and 6
  EXPECT_EQ(breaks.Count(), 2);
  EXPECT_EQ(breaks.PositionOf(3), 3);
  EXPECT_EQ(breaks.PositionOf(4), 3);
  EXPECT_EQ(breaks.PositionOf(7), 5);
  EXPECT_EQ(breaks.OffsetOf(2), 2);
  EXPECT_EQ(breaks.OffsetOf(3), 4);
  EXPECT_EQ(breaks.OffsetOf(4), 5);
  EXPECT_EQ(breaks.OffsetOf(5), 7);
  EXPECT_EQ(breaks.OffsetOf(6), 8);
}

TEST(SoftBreaksTest, InsertionsAndErasuresMoveBreaks) {
  SoftBreaks breaks;
  breaks.Inserted(0, 8, "abc" + kBreak + "de" + kBreak + "f");
  breaks.Inserted(1, 2, "xy");  // now at 5 and 8
  EXPECT_EQ(breaks.PositionOf(6), 5);
  breaks.Erased(0, 6);  // takes the first along; the second is at 2
  EXPECT_EQ(breaks.Count(), 1);
  EXPECT_EQ(breaks.PositionOf(3), 2);
}

}  // namespace
}  // namespace corvane::desktop
