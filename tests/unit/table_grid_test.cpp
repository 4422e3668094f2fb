#include "browser/reading/TableGrid.h"

#include <gmock/gmock.h>

namespace corvane::tests {
namespace {

using Step = TableGrid::Step;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Cells by "column", "row" or no header.
struct TableGridTest : ::testing::Test {
  PageTable table;

  PageCell& Cell(int row, int column, int rows = 1, int columns = 1) {
    PageCell cell;
    cell.row = row;
    cell.column = column;
    cell.rows = rows;
    cell.columns = columns;
    return table.cells.emplace_back(cell);
  }
  void ColumnHeader(int row, int column, int columns = 1) {
    Cell(row, column, 1, columns).heads_columns = true;
  }
  void RowHeader(int row, int column, int rows = 1) {
    Cell(row, column, rows, 1).heads_rows = true;
  }
  /// The cells on the way, from the first one on.
  std::vector<std::size_t> Way(const std::vector<Step>& steps) const {
    const TableGrid grid(table);
    auto place = grid.BeginningOf(0);
    std::vector<std::size_t> cells;
    for (const Step step : steps) {
      const auto next = grid.Next(place, step);
      if (next) place = *next;
      cells.push_back(next ? next->cell : 99);
    }
    return cells;
  }
};

TEST_F(TableGridTest, StepsLeadToTheCellBesideAndEndAtTheEdge) {
  for (int row = 1; row <= 2; ++row) {
    for (int column = 1; column <= 2; ++column) Cell(row, column);
  }
  EXPECT_THAT(Way({Step::Right, Step::Right, Step::Down, Step::Down, Step::Left, Step::Left,
                   Step::Up, Step::Up, Step::Last, Step::First}),
              ElementsAre(1, 99, 3, 99, 2, 99, 0, 99, 3, 0));
}

TEST_F(TableGridTest, TheColumnIsKeptThroughACellThatReachesOverSeveral) {
  Cell(1, 1);
  Cell(1, 2);
  Cell(1, 3);
  Cell(2, 1, 1, 3);
  Cell(3, 1);
  Cell(3, 2);
  Cell(3, 3);
  EXPECT_THAT(Way({Step::Right, Step::Down, Step::Down, Step::Up, Step::Up}),
              ElementsAre(1, 3, 5, 3, 1));
  EXPECT_THAT(Way({Step::Last, Step::Up, Step::Right, Step::Left, Step::Up}),
              ElementsAre(6, 3, 99, 99, 2));
}

TEST_F(TableGridTest, TheRowIsKeptThroughATallCell) {
  Cell(1, 1);
  Cell(1, 2, 2, 1);
  Cell(1, 3);
  Cell(2, 1);
  Cell(2, 3);
  EXPECT_THAT(Way({Step::Down, Step::Right, Step::Right, Step::Left, Step::Down}),
              ElementsAre(3, 1, 4, 1, 99));
  EXPECT_THAT(Way({Step::Right, Step::Right}), ElementsAre(1, 2));
}

TEST_F(TableGridTest, WhereNoCellIsTheNextOneCounts) {
  Cell(1, 1);
  Cell(1, 2);
  Cell(2, 1);
  Cell(40, 2);
  Cell(40, 7);
  EXPECT_THAT(Way({Step::Right, Step::Down, Step::Right, Step::Up}), ElementsAre(1, 3, 4, 99));
}

TEST_F(TableGridTest, HeadersAreInFrontOfTheirCells) {
  Cell(1, 1);
  ColumnHeader(1, 2);
  ColumnHeader(1, 3);
  RowHeader(2, 1);
  Cell(2, 2);
  Cell(2, 3);
  const TableGrid grid(table);
  EXPECT_THAT(grid.ColumnHeaders(5), ElementsAre(2));
  EXPECT_THAT(grid.RowHeaders(5), ElementsAre(3));
  EXPECT_THAT(grid.ColumnHeaders(3), IsEmpty());
  EXPECT_THAT(grid.RowHeaders(2), IsEmpty()) << "a column's header is none of the row";
}

TEST_F(TableGridTest, SeveralRowsOfHeadersAreAllMeant) {
  ColumnHeader(1, 1, 2);
  ColumnHeader(2, 1);
  ColumnHeader(2, 2);
  Cell(3, 1);
  Cell(3, 2);
  const TableGrid grid(table);
  EXPECT_THAT(grid.ColumnHeaders(4), ElementsAre(0, 2));
  EXPECT_THAT(grid.ColumnHeaders(2), ElementsAre(0));
}

TEST_F(TableGridTest, AHeaderBehindDataTakesTheOthersPlace) {
  ColumnHeader(1, 1, 2);
  Cell(2, 1);
  Cell(2, 2);
  ColumnHeader(3, 1, 2);
  Cell(4, 1);
  ColumnHeader(4, 2);
  Cell(5, 2);
  const TableGrid grid(table);
  EXPECT_THAT(grid.ColumnHeaders(1), ElementsAre(0));
  EXPECT_THAT(grid.ColumnHeaders(4), ElementsAre(3));
  EXPECT_THAT(grid.ColumnHeaders(6), ElementsAre(3, 5)) << "of another extent";
}

TEST_F(TableGridTest, AGroupsHeaderHeadsItsRows) {
  ColumnHeader(1, 1);
  Cell(2, 1, 1, 2).heads_rows = true;
  table.cells.back().heads_until = 4;
  Cell(3, 1);
  Cell(3, 2);
  Cell(4, 1);
  const TableGrid grid(table);
  EXPECT_THAT(grid.RowHeaders(3), ElementsAre(1));
  EXPECT_THAT(grid.RowHeaders(4), IsEmpty());
  EXPECT_THAT(grid.RowHeaders(1), IsEmpty());
}

TEST_F(TableGridTest, WhatThePageNamesCountsAlone) {
  ColumnHeader(1, 1);
  ColumnHeader(1, 2);
  RowHeader(2, 1);
  Cell(2, 2).headers = {0, 2};
  Cell(3, 1);
  Cell(3, 2).headers = {4};
  const TableGrid grid(table);
  EXPECT_THAT(grid.ColumnHeaders(3), ElementsAre(0));
  EXPECT_THAT(grid.RowHeaders(3), ElementsAre(2));
  EXPECT_THAT(grid.RowHeaders(5), ElementsAre(4)) << "beside it, whatever it is";
  EXPECT_THAT(grid.ColumnHeaders(5), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
