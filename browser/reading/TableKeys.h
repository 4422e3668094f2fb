#pragma once

#include <optional>
#include <string>

#include "browser/PaneContext.h"
#include "browser/reading/PageInPane.h"
#include "browser/reading/TableGrid.h"

namespace corvane {

/// What leads from cell to cell of the page's tables in the text pane: said are the
/// header that is new, the cell, and which row or column it lies in where that changes.
class TableKeys {
 public:
  TableKeys(PaneContext& pane, PageInPane& page) : pane_(pane), page_(page) {}

  /// What a key with Alt and Shift does in a table; none where it does nothing there.
  static std::optional<TableGrid::Step> StepOf(int code);
  /// The same in a few words, as they follow the key's name.
  static std::optional<std::string> WhatDoes(int code);
  /// Takes the step, or says why it is none. The page's map must be known.
  void Go(TableGrid::Step step);

 private:
  struct Found {
    const PageTable* table;
    TableGrid::Place place;
    bool is_there = true;  ///< false: the reader is at the table, but at none of its cells
  };
  std::optional<Found> Find() const;
  std::optional<Found> LedTo(std::size_t span) const;
  TableGrid::Place PlaceIn(const PageTable& table, std::size_t cell) const;
  void Reach(const PageTable& table, const std::optional<TableGrid::Place>& from,
             const TableGrid::Place& to);
  std::string CellWords(std::size_t span) const;

  PaneContext& pane_;
  PageInPane& page_;
  PageElement reached_;  // the cell that was led to last
  TableGrid::Place place_;
};

}  // namespace corvane
