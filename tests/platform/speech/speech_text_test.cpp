#include "platform/linux/speech/speech_text.h"

#include <gmock/gmock.h>

#include <vector>

#include "base/text.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> Pieces(const std::string& text, std::size_t most = TextPieces::kMost) {
  std::vector<std::string> all;
  TextPieces pieces(text, most);
  for (std::string piece; pieces.Next(piece);) all.push_back(piece);
  return all;
}

std::size_t Characters(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text::take_character(text);
  return count;
}

bool IsValid(std::string_view text) {
  while (!text.empty()) {
    const std::size_t before = text.size();
    if (text::take_character(text) == 0xFFFD && before - text.size() == 1) return false;
  }
  return true;
}

TEST(TextPieces, ShortTextIsOnePiece) {
  EXPECT_THAT(Pieces("Hello, welcome."), ElementsAre("Hello, welcome."));
}

TEST(TextPieces, NothingToSpeakIsNoPiece) {
  EXPECT_THAT(Pieces(""), IsEmpty());
  EXPECT_THAT(Pieces(" \t\r\n \xC2\xA0"), IsEmpty());
  EXPECT_THAT(Pieces(std::string("\0\x01\x02\x1B", 4)), IsEmpty());
}

TEST(TextPieces, RunsOfBlanksBecomeOneBlankAndABlankLineStays) {
  EXPECT_THAT(Pieces("  one\t \r\ntwo  "), ElementsAre("one two"));
  EXPECT_THAT(Pieces("one\r\n \r\n\r\ntwo"), ElementsAre("one\n\ntwo"));
}

TEST(TextPieces, ControlFormattingAndPrivateCharactersGo) {
  EXPECT_THAT(Pieces("a\x01"
                     "80Pb"),
              ElementsAre("a80Pb"));
  EXPECT_THAT(Pieces("a\x7F\xC2\x9F\xC2\xAD\xE2\x80\x8B\xE2\x80\xAE\xEF\xBB\xBF\xEE\x80\x80"
                     "b"),
              ElementsAre("ab"));
}

TEST(TextPieces, EveryInvalidByteBecomesTheReplacementCharacter) {
  const std::string mark = "\xEF\xBF\xBD";
  EXPECT_THAT(Pieces("a\xFF"
                     "b"),
              ElementsAre("a" + mark + "b"));
  EXPECT_THAT(Pieces("\xC3"), ElementsAre(mark));                        // cut short
  EXPECT_THAT(Pieces("\xC0\xAF"), ElementsAre(mark + mark));             // overlong
  EXPECT_THAT(Pieces("\xED\xA0\x80"), ElementsAre(mark + mark + mark));  // half a pair
  EXPECT_THAT(Pieces("\xF4\x90\x80\x80"), ElementsAre(mark + mark + mark + mark));
}

TEST(TextPieces, CutsBehindTheLastSentenceThatFits) {
  EXPECT_THAT(Pieces("One two. Three four. Five six seven", 25),
              ElementsAre("One two. Three four.", "Five six seven"));
}

TEST(TextPieces, CutsAtABlankLineBeforeAWord) {
  EXPECT_THAT(Pieces("Heading\n\nand words that follow", 20),
              ElementsAre("Heading", "and words that", "follow"));
}

TEST(TextPieces, CutsAtABlankWhereThereIsNoSentence) {
  EXPECT_THAT(Pieces("alpha beta gamma", 11), ElementsAre("alpha beta", "gamma"));
  EXPECT_THAT(Pieces("alpha beta", 10), ElementsAre("alpha beta"));
}

TEST(TextPieces, CutsALongWordBetweenCharacters) {
  EXPECT_THAT(Pieces("\xC3\xA4\xC3\xB6\xC3\xBC", 2), ElementsAre("\xC3\xA4\xC3\xB6", "\xC3\xBC"));
  EXPECT_THAT(Pieces("\xF0\x9F\x98\x80\xF0\x9F\x98\x81", 1),
              ElementsAre("\xF0\x9F\x98\x80", "\xF0\x9F\x98\x81"));
}

TEST(TextPieces, AMarkStaysWithItsLetter) {
  EXPECT_THAT(Pieces("abe\xCC\x81"
                     "c",
                     3),
              ElementsAre("abe\xCC\x81", "c"));
}

TEST(TextPieces, CutsBehindAnIdeographicFullStop) {
  const std::string sentence = "\xE4\xBD\xA0\xE5\xA5\xBD\xE3\x80\x82";
  EXPECT_THAT(Pieces(sentence + "\xE4\xBD\xA0", 3), ElementsAre(sentence, "\xE4\xBD\xA0"));
}

TEST(TextPieces, AMegabyteComesInBoundedPiecesThatLoseNothing) {
  std::string text;
  std::string expected;
  while (text.size() < 1'000'000) {
    text += "W\xC3\xB6rter und S\xC3\xA4tze.  Noch einer ";
    expected += "W\xC3\xB6rter und S\xC3\xA4tze. Noch einer ";
  }
  expected.pop_back();
  std::string joined;
  for (const std::string& piece : Pieces(text)) {
    ASSERT_LE(Characters(piece), TextPieces::kMost);
    ASSERT_TRUE(IsValid(piece));
    if (!joined.empty()) joined += ' ';
    joined += piece;
  }
  EXPECT_EQ(joined, expected);
}

TEST(TextPieces, TheFirstPieceOfAMegabyteReadsNoFurtherThanItNeeds) {
  // What changes further on is still seen: nothing was read ahead.
  std::string text(1'000'000, 'x');
  for (std::size_t i = 9; i < text.size(); i += 10) text[i] = ' ';
  TextPieces pieces(text);
  std::string piece;
  ASSERT_TRUE(pieces.Next(piece));
  text.replace(5000, 9, "REPLACED.");
  std::string rest;
  while (pieces.Next(piece)) rest += piece;
  EXPECT_NE(rest.find("REPLACED."), std::string::npos);
}

TEST(TextPieces, AMegabyteOfRubbishIsBoundedAndValid) {
  std::string text;
  std::uint32_t state = 1;
  while (text.size() < 1'000'000) {
    state = state * 1664525 + 1013904223;
    text += static_cast<char>(state >> 24);
  }
  std::size_t count = 0;
  for (const std::string& piece : Pieces(text)) {
    ASSERT_LE(Characters(piece), TextPieces::kMost + 16);
    ASSERT_TRUE(IsValid(piece));
    for (const char c : piece) ASSERT_TRUE(c == '\n' || static_cast<unsigned char>(c) >= 0x20);
    ++count;
  }
  EXPECT_GT(count, 1000U);
}

TEST(TextPieces, EndlessMarksAreCutToo) {
  std::string text = "a";
  for (int i = 0; i < 10'000; ++i) text += "\xCC\x81";
  for (const std::string& piece : Pieces(text, 10)) ASSERT_LE(Characters(piece), 26U);
}

}  // namespace
}  // namespace corvane::desktop
