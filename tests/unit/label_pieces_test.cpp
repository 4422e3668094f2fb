#include "explorer/LabelPieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"

namespace corvane::tests {
namespace {

using ::testing::ElementsAre;

TEST(LabelPieces, LabelOf125CharactersStaysWhole) {
  EXPECT_THAT(LabelPieces(std::string(125, 'x')), ElementsAre(std::string(125, 'x')));
  EXPECT_THAT(LabelPieces(""), ElementsAre(""));
}

TEST(LabelPieces, LongerLabelBreaksAtItsLastBlank) {
  std::string label(126, 'x');
  label[109] = ' ';
  EXPECT_THAT(LabelPieces(label), ElementsAre(label.substr(0, 110), label.substr(109)));
}

TEST(LabelPieces, BlankThatComesTooEarlyIsNoPlaceToBreak) {
  std::string label(126, 'x');
  label[98] = ' ';
  EXPECT_EQ(LabelPieces(label)[0].size(), 125U);
  label[99] = ' ';
  EXPECT_EQ(LabelPieces(label)[0].size(), 100U);
}

TEST(LabelPieces, EachPieceRepeatsTheCharacterBeforeIt) {
  std::string label;
  for (int i = 0; i < 300; ++i) label += static_cast<char>('a' + i % 26);
  EXPECT_THAT(LabelPieces(label),
              ElementsAre(label.substr(0, 125), label.substr(124, 125), label.substr(249)));
  EXPECT_EQ(LabelPieces(label)[2].size(), 51U);
}

TEST(LabelPieces, NothingIsShownBeyondPosition12700) {
  const auto pieces = LabelPieces(std::string(12700, 'x') + std::string(9000, 'y'));
  EXPECT_EQ(pieces.size(), 102U);
  for (const auto& piece : pieces) EXPECT_EQ(piece.find('y'), std::string::npos);
}

TEST(LabelPieces, CharactersAreNeverCutInTwo) {
  std::string label;
  for (int i = 0; i < 130; ++i) label += "ä";
  const auto pieces = LabelPieces(label);
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(text::length(pieces[0]), 125U);
  EXPECT_EQ(text::length(pieces[1]), 6U);
  EXPECT_EQ(text::valid(pieces[1]), pieces[1]);
}

}  // namespace
}  // namespace corvane::tests
