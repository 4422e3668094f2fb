#include "platform/linux/gtk/layout/band_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace corvane::desktop {
namespace {

using testing::ElementsAre;

constexpr int kWidth = 600;

/// Bands that are dragged about in a strip of 600 pixels; each is named by its
/// first place.
struct BandRows : testing::Test {
  std::vector<BandSize> bands = {{100, 10, 30}, {150, 10, 40}, {80, 10, 20}};
  std::string names = "abc";

  std::size_t Place(char name) const { return names.find(name); }
  BandSpot Spot(char name) const { return PlaceBands(bands, kWidth)[Place(name)]; }
  /// The names row by row, as they stand.
  std::string Rows() const {
    std::string rows;
    std::size_t row = 0;
    const auto spots = PlaceBands(bands, kWidth);
    for (std::size_t i = 0; i < bands.size(); ++i) {
      if (spots[i].row != row) rows += '/';
      row = spots[i].row;
      rows += names[i];
    }
    return rows;
  }
  void Drag(char name, int x, int y) {
    const BandOrder order = DragBand(bands, kWidth, Place(name), {x, y}, 4);
    std::string now;
    for (const std::size_t from : order.from) now += names[from];
    names = now;
    bands = order.bands;
  }
};

TEST_F(BandRows, StandSideBySideAndTheLastGetsWhatIsLeft) {
  EXPECT_EQ(Rows(), "abc");
  EXPECT_EQ(Spot('a').left, 0);
  EXPECT_EQ(Spot('a').width, 100) << "10 would be less than it needs";
  EXPECT_EQ(Spot('b').left, 100);
  EXPECT_EQ(Spot('c').left, 250);
  EXPECT_EQ(Spot('c').width, 350);
  for (const char name : names) EXPECT_EQ(Spot(name).height, 40) << "as high as the highest";
}

TEST_F(BandRows, ABandThatBreaksOrDoesNotFitStartsARow) {
  bands[1].breaks = true;
  bands[2].least = 500;
  EXPECT_EQ(Rows(), "a/b/c");
  EXPECT_EQ(Spot('b').top, 30);
  EXPECT_EQ(Spot('c').top, 70);
  EXPECT_EQ(Spot('c').height, 20);
}

TEST_F(BandRows, AWishedWidthHoldsAsFarAsTheOthersHaveRoom) {
  bands[0].wish = 200;
  EXPECT_EQ(Spot('b').left, 200);
  bands[0].wish = 5000;
  EXPECT_EQ(Spot('a').width, 600 - 150 - 80);
  EXPECT_EQ(Spot('c').width, 80);
}

TEST_F(BandRows, AStripThatIsTooNarrowKeepsItsBands) {
  const auto spots = PlaceBands(bands, 50);
  EXPECT_EQ(spots[2].row, 2U);
  EXPECT_EQ(spots[0].width, 100);
}

TEST_F(BandRows, AGripDraggedToTheRightWidensTheNeighbour) {
  Drag('b', 204, 10);
  EXPECT_EQ(Rows(), "abc");
  EXPECT_EQ(Spot('a').width, 200);
  EXPECT_EQ(Spot('b').left, 200);
  Drag('b', 590, 10);
  EXPECT_EQ(Spot('a').width, 370) << "b and c keep what they need";
  Drag('b', 90, 10);
  EXPECT_EQ(Spot('a').width, 100) << "and so does a";
  EXPECT_EQ(Rows(), "abc");
}

TEST_F(BandRows, ABandDraggedOverItsNeighbourChangesPlacesWithIt) {
  Drag('b', 40, 10);
  EXPECT_EQ(Rows(), "bac");
  Drag('b', 42, 10);
  EXPECT_EQ(Rows(), "bac") << "it stays there";
  Drag('b', 260, 10);
  EXPECT_EQ(Rows(), "abc");
}

TEST_F(BandRows, TheFirstBandOfALowerRowLeavesTheBreakToItsSuccessor) {
  bands[1].breaks = true;
  ASSERT_EQ(Rows(), "a/bc");
  Drag('c', 20, 35);
  EXPECT_EQ(Rows(), "a/cb");
  EXPECT_TRUE(bands[1].breaks);
  EXPECT_FALSE(bands[2].breaks);
}

TEST_F(BandRows, ABandDraggedBelowGetsARowOfItsOwn) {
  Drag('a', 300, 41);
  EXPECT_EQ(Rows(), "bc/a");
  EXPECT_TRUE(bands[2].breaks);
  Drag('a', 10, 500);
  EXPECT_EQ(Rows(), "bc/a") << "which it has already";
}

TEST_F(BandRows, ABandDraggedOverAnotherRowGoesThere) {
  bands[2].breaks = true;
  ASSERT_EQ(Rows(), "ab/c");
  Drag('c', 60, 5);
  EXPECT_EQ(Rows(), "acb");
  Drag('c', 60, 41);
  EXPECT_EQ(Rows(), "ab/c");
  Drag('a', 500, 41);
  EXPECT_EQ(Rows(), "b/ca");
  Drag('c', 1, -20);
  EXPECT_EQ(Rows(), "cb/a") << "above the strip is its first row";
}

TEST_F(BandRows, RowsThatWereNeededForRoomAreKeptByADragBetweenThem) {
  bands = {{250, 10, 30}, {250, 10, 30}, {250, 10, 30}};
  ASSERT_EQ(Rows(), "ab/c");
  Drag('b', 0, 31);
  EXPECT_EQ(Rows(), "a/bc") << "it does not flow back";
}

TEST_F(BandRows, NoDragLosesABand) {
  unsigned seed = 1;
  const auto next = [&seed](int below) {
    seed = seed * 1103515245U + 12345U;
    return static_cast<int>(seed >> 16U) % below;
  };
  for (int i = 0; i < 2000; ++i) {
    Drag(static_cast<char>('a' + next(3)), next(700) - 50, next(200) - 50);
    std::string sorted = names;
    std::sort(sorted.begin(), sorted.end());
    ASSERT_EQ(sorted, "abc") << i;
    const auto spots = PlaceBands(bands, kWidth);
    for (std::size_t k = 0; k < 3; ++k) {
      ASSERT_GE(spots[k].width, bands[k].least) << i;
      ASSERT_LE(spots[k].left + spots[k].width, kWidth) << i;
    }
  }
}

}  // namespace
}  // namespace corvane::desktop
