// How paragraphs are told apart on a page without tags.
#include "platform/linux/pdf/layout.h"

#include <gmock/gmock.h>

namespace corvane::pdf {
namespace {

using testing::ElementsAre;

class LayoutTest : public testing::Test {
 protected:
  struct Where {
    double left = 50;
    double width = 400;
    double size = 10;
  };
  /// A line of one word at that height.
  void Line(const std::string& text, double top, Where where) {
    Word word;
    word.text = text;
    word.box = {where.left, top, where.left + where.width, top + where.size};
    word.size = where.size;
    word.line = line_++;
    word.block = block_;
    page_.words.push_back(word);
  }
  /// Another word on the line.
  void Continue(const std::string& text) {
    page_.words.back().blank_after = true;
    Word word = page_.words.back();
    word.text = text;
    page_.words.push_back(word);
  }
  void Line(const std::string& text, double top) { Line(text, top, {}); }
  std::vector<std::string> Read() {
    std::vector<std::string> texts;
    Places places;
    for (const Node& node : Paragraphs(page_, 1, places, [](const Word&) { return true; })) {
      texts.push_back(WordsOf(node));
    }
    return texts;
  }

  Page page_;
  int line_ = 0;
  int block_ = 0;
};

TEST_F(LayoutTest, LinesThatFollowEachOtherAreOneParagraph) {
  Line("one", 100);
  Line("two", 112);
  Line("three", 124);
  EXPECT_THAT(Read(), ElementsAre("one two three"));
}

TEST_F(LayoutTest, AWiderGapBeginsAnother) {
  Line("one", 100);
  Line("two", 112);
  Line("three", 132);
  Line("four", 144);
  EXPECT_THAT(Read(), ElementsAre("one two", "three four"));
}

TEST_F(LayoutTest, LargerLettersAreApart) {
  Line("Title", 100, {.size = 18});
  Line("text", 120);
  EXPECT_THAT(Read(), ElementsAre("Title", "text"));
}

TEST_F(LayoutTest, AnIndentBeginsAnother) {
  Line("one", 100);
  Line("two", 112, {.left = 62, .width = 388});
  Line("three", 124);
  EXPECT_THAT(Read(), ElementsAre("one", "two three"));
}

TEST_F(LayoutTest, AShortLineThatEndsASentenceEndsTheParagraph) {
  Line("one", 100);
  Line("two.", 112, {.width = 100});
  Line("three", 124);
  EXPECT_THAT(Read(), ElementsAre("one two.", "three"));
}

TEST_F(LayoutTest, SignsInAColumnOfTheirOwnStandBeforeTheirLines) {
  const Where column{.left = 50, .width = 12};
  const Where text{.left = 80, .width = 300};
  Line("1.", 100, column);
  Line("2.", 112, column);
  block_ = 1;
  Line("one", 100, text);
  Line("two", 112, text);
  Line("more", 124, text);
  EXPECT_THAT(Read(), ElementsAre("1. one", "2. two more"));
}

TEST_F(LayoutTest, ANumberWithNothingBesideItStandsByItself) {
  Line("12", 100, {.left = 500, .width = 12});
  block_ = 1;
  Line("one", 100);
  EXPECT_THAT(Read(), ElementsAre("12", "one"));
}

TEST_F(LayoutTest, ABulletBeginsAParagraph) {
  Line("\u2022", 100, {.width = 5});
  Line("one", 112);
  Line("\u2022", 124, {.width = 5});
  EXPECT_THAT(Read(), ElementsAre("\u2022 one", "\u2022"));
}

TEST_F(LayoutTest, DotsBetweenAnEntryAndItsPageAreNotRead) {
  Line("Contents", 100);
  for (const char* word : {".", ".", ".", ".", "5"}) Continue(word);
  Line("wait", 112);
  Continue("...");
  EXPECT_THAT(Read(), ElementsAre("Contents 5", "wait ..."));
}

TEST_F(LayoutTest, AWordThatALineBreaksIsWhole) {
  Line("holi-", 100);
  Line("days", 112);
  Line("e-", 124);
  Line("Mail", 136);
  EXPECT_THAT(Read(), ElementsAre("holidays e- Mail"));
}

}  // namespace
}  // namespace corvane::pdf
