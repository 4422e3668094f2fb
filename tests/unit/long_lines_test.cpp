// Breaking the lines of page texts.
#include "web/page/LongLines.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(BreakLongLines, LeavesShortLinesAlone) {
  EXPECT_EQ(BreakLongLines("one two\nthree", 7), "one two\nthree");
}

TEST(BreakLongLines, BreaksAtTheLastBlank) {
  EXPECT_EQ(BreakLongLines("one two three", 9), "one two\nthree");
}

TEST(BreakLongLines, CutsWhereThereIsNoBlank) {
  EXPECT_EQ(BreakLongLines("abcdefgh", 3), "abc\ndef\ngh");
}

TEST(BreakLongLines, CountsCharactersAndNeverCutsOne) {
  EXPECT_EQ(BreakLongLines("éééé", 3), "ééé\né");
}

TEST(BreakLongLines, BreaksEachLineForItself) {
  EXPECT_EQ(BreakLongLines("aaaa\nbb cc", 4), "aaaa\nbb\ncc");
}

TEST(BreakLongLines, BreaksAgainAfterABreak) {
  EXPECT_EQ(BreakLongLines("aa bb cc dd", 5), "aa bb\ncc dd");
}

TEST(BreakLongLines, ABlankAtTheLimitBreaksThere) {
  EXPECT_EQ(BreakLongLines("abc def", 4), "abc\ndef");
}

TEST(BreakLongLines, TwoMegabytesInOneLine) {
  const std::string broken = BreakLongLines(std::string(2'000'000, 'x'));
  EXPECT_EQ(broken.size(), 2'000'000u + 499u);
}

TEST(BreakLongLines, EmptyText) { EXPECT_EQ(BreakLongLines(""), ""); }

}  // namespace
}  // namespace corvane
