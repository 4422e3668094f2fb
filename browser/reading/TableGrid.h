#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/page_text.h"

namespace corvane {

/// Looks up which cell of a table lies where, and what heads it. Cells are named by their
/// index in PageTable::cells.
class TableGrid {
 public:
  enum class Step { Left, Right, Up, Down, First, Last };
  /// A place in the table. In a cell that reaches over several rows or columns it is the
  /// one of them that its reader has come through.
  struct Place {
    std::size_t cell = 0;
    int row = 1;
    int column = 1;
  };

  /// The table must outlive it and have a cell.
  explicit TableGrid(const PageTable& table) : cells_(table.cells) {}

  const PageCell& At(std::size_t cell) const { return cells_[cell]; }
  /// The place that a cell begins at.
  Place BeginningOf(std::size_t cell) const { return {cell, At(cell).row, At(cell).column}; }
  /// None at the edge. Where no cell is, the next one counts.
  std::optional<Place> Next(const Place& from, Step step) const;

  /// The headers of a cell in the order of the table: those that the page names, else
  /// those that lie in front of it and were not replaced by others since.
  std::vector<std::size_t> ColumnHeaders(std::size_t cell) const;
  std::vector<std::size_t> RowHeaders(std::size_t cell) const;

 private:
  /// Columns or rows: the table is looked at in one direction, or in the other.
  enum class Side { Columns, Rows };
  std::vector<std::size_t> Headers(std::size_t cell, Side side) const;
  std::vector<std::size_t> NamedHeaders(const PageCell& cell, Side side) const;
  void AddGroupHeaders(std::size_t cell, std::vector<std::size_t>& headers) const;

  const std::vector<PageCell>& cells_;
};

}  // namespace corvane
