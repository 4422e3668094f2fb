#include "browser/reading/TableKeys.h"

#include <algorithm>
#include <vector>

#include "browser/reading/TextKinds.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;
using Step = TableGrid::Step;

constexpr int kLongestHeader = 200;       // characters
constexpr std::size_t kMostHeaders = 10;  // of one cell; nobody keeps more in mind
constexpr int kLongestWords = 1000;       // characters of a cell, as of what quick keys reach

void Add(std::string& all, const std::string& words) {
  if (words.empty()) return;
  if (!all.empty()) all += ", ";
  all += words;
}

std::string OneLine(const std::string& words) {
  std::string line;
  for (const char c : words) {
    const bool blank = c == '\n' || c == ' ';
    if (!blank || (!line.empty() && line.back() != ' ')) line += blank ? ' ' : c;
  }
  while (line.ends_with(' ')) line.pop_back();
  return line;
}

/// "row 2", "rows 2 to 3".
std::string RangeWords(const char* what, int first, int count) {
  if (count <= 1) return what + (" " + std::to_string(first));
  return what + ("s " + std::to_string(first) + " to " + std::to_string(first + count - 1));
}

std::vector<std::size_t> Without(std::vector<std::size_t> list,
                                 const std::vector<std::size_t>& others) {
  std::erase_if(list, [&](std::size_t each) {
    return std::find(others.begin(), others.end(), each) != others.end();
  });
  return list;
}

}  // namespace

std::optional<std::string> TableKeys::WhatDoes(int code) {
  // In the order of the steps.
  static constexpr const char* kWords[] = {
      "goes to the cell before in the table", "goes to the next cell in the table",
      "goes to the cell above in the table",  "goes to the cell below in the table",
      "goes to the first cell of the table",  "goes to the last cell of the table"};
  const auto step = StepOf(code);
  if (!step) return std::nullopt;
  return kWords[static_cast<std::size_t>(*step)];
}

std::optional<Step> TableKeys::StepOf(int code) {
  switch (code) {
    case kKeyLeft:
      return Step::Left;
    case kKeyRight:
      return Step::Right;
    case kKeyUp:
      return Step::Up;
    case kKeyDown:
      return Step::Down;
    case kKeyHome:
      return Step::First;
    case kKeyEnd:
      return Step::Last;
    default:
      return std::nullopt;
  }
}

// The place in a cell that was led to is kept as long as the caret stays in it.
TableGrid::Place TableKeys::PlaceIn(const PageTable& table, std::size_t cell) const {
  const PageText& page = page_.Map()->Page();
  const PageCell& it = table.cells[cell];
  const bool same = page.ElementOf(page.spans[it.span]) == reached_;
  const bool within = place_.row >= it.row && place_.row < it.row + it.rows &&
                      place_.column >= it.column && place_.column < it.column + it.columns;
  if (same && within) return {cell, place_.row, place_.column};
  return TableGrid(table).BeginningOf(cell);
}

// What has been led to may share its place in the text with others: a table with its
// first cell, a cell without text with what comes next.
std::optional<TableKeys::Found> TableKeys::LedTo(std::size_t span) const {
  for (const PageTable& table : page_.Map()->Page().tables) {
    if (table.span == span) return Found{&table, TableGrid(table).BeginningOf(0), false};
    const auto& cells = table.cells;
    const auto cell = std::find_if(cells.begin(), cells.end(),
                                   [&](const PageCell& each) { return each.span == span; });
    if (cell == cells.end()) continue;
    return Found{&table, PlaceIn(table, static_cast<std::size_t>(cell - cells.begin()))};
  }
  return std::nullopt;
}

std::optional<TableKeys::Found> TableKeys::Find() const {
  const TextMap& map = *page_.Map();
  const int caret = page_.Caret();
  if (const auto here = page_.Here()) {
    if (const auto found = LedTo(*here)) return found;
  }
  // Inner tables come first.
  for (const PageTable& table : map.Page().tables) {
    if (map.At(table.span).start > caret || map.At(table.span).End() <= caret) continue;
    std::optional<std::size_t> cell;
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
      if (map.At(table.cells[i].span).start <= caret) cell = i;
      if (map.At(table.cells[i].span).start <= caret && map.At(table.cells[i].span).End() > caret) {
        return Found{&table, PlaceIn(table, i)};
      }
    }
    return Found{&table, PlaceIn(table, cell.value_or(0)), cell.has_value()};
  }
  return std::nullopt;
}

void TableKeys::Go(Step step) {
  const auto found = Find();
  if (!found) return pane_.announcer.Say("Not in a table");
  const bool to_corner = step == Step::First || step == Step::Last;
  if (!found->is_there && !to_corner) return Reach(*found->table, std::nullopt, found->place);
  const auto next = TableGrid(*found->table).Next(found->place, step);
  if (!next) return pane_.announcer.Say("Edge of table");
  Reach(*found->table, to_corner ? std::nullopt : std::optional(found->place), *next);
}

void TableKeys::Reach(const PageTable& table, const std::optional<TableGrid::Place>& from,
                      const TableGrid::Place& to) {
  const TableGrid grid(table);
  const TextMap& map = *page_.Map();
  const PageCell& cell = grid.At(to.cell);
  const PageCell* before = from ? &grid.At(from->cell) : nullptr;
  const bool row = before == nullptr || before->row != cell.row || before->rows != cell.rows;
  const bool column =
      before == nullptr || before->column != cell.column || before->columns != cell.columns;
  std::string words;
  const auto say_headers = [&](std::vector<std::size_t> headers,
                               const std::vector<std::size_t>& known) {
    auto fresh = Without(std::move(headers), known);
    if (fresh.size() > kMostHeaders) fresh.erase(fresh.begin(), fresh.end() - kMostHeaders);
    for (const std::size_t each : fresh) {
      const PageSpan& span = map.At(grid.At(each).span);
      Add(words, OneLine(map.Marked(span.start, std::min(span.length, kLongestHeader))));
    }
  };
  using Cells = std::vector<std::size_t>;
  if (row) say_headers(grid.RowHeaders(to.cell), from ? grid.RowHeaders(from->cell) : Cells());
  if (column) {
    say_headers(grid.ColumnHeaders(to.cell), from ? grid.ColumnHeaders(from->cell) : Cells());
  }
  Add(words, CellWords(cell.span));
  if (row) Add(words, RangeWords("row", cell.row, cell.rows));
  if (column) Add(words, RangeWords("column", cell.column, cell.columns));
  reached_ = map.Page().ElementOf(map.At(cell.span));
  place_ = to;
  pane_.announcer.Say(words);
  page_.GoTo(cell.span);
}

std::string TableKeys::CellWords(std::size_t span) const {
  const TextMap& map = *page_.Map();
  const PageSpan& cell = map.At(span);
  const int length = std::min(cell.length, kLongestWords);
  const std::string words =
      OneLine(pane_.manner.text_kinds
                  ? LineWithKinds(map, cell.start, map.Text(cell.start, length), span + 1)
                  : map.Marked(cell.start, length));
  return words.empty() ? "blank" : words;
}

}  // namespace corvane
