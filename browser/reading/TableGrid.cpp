#include "browser/reading/TableGrid.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace corvane {
namespace {

/// What a cell covers of its rows, or of its columns.
struct Range {
  int first;
  int count;

  int Last() const { return first + count - 1; }
  bool Holds(int at) const { return first <= at && at <= Last(); }
  bool Meets(const Range& other) const { return first <= other.Last() && other.first <= Last(); }
  bool operator==(const Range&) const = default;
};

Range Rows(const PageCell& cell) { return {cell.row, cell.rows}; }
Range Columns(const PageCell& cell) { return {cell.column, cell.columns}; }

bool IsHeader(const PageCell& cell) { return cell.heads_columns || cell.heads_rows; }

}  // namespace

std::optional<TableGrid::Place> TableGrid::Next(const Place& from, Step step) const {
  if (step == Step::First) return BeginningOf(0);
  if (step == Step::Last) return BeginningOf(cells_.size() - 1);
  const bool along_row = step == Step::Left || step == Step::Right;
  const bool on = step == Step::Right || step == Step::Down;
  const auto along = [&](const PageCell& cell) { return along_row ? Columns(cell) : Rows(cell); };
  const auto across = [&](const PageCell& cell) { return along_row ? Rows(cell) : Columns(cell); };
  const int lane = along_row ? from.row : from.column;
  const Range here = along(At(from.cell));
  std::optional<std::size_t> best;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (i == from.cell || !across(cells_[i]).Holds(lane)) continue;
    const Range there = along(cells_[i]);
    if (on ? there.first <= here.Last() : there.Last() >= here.first) continue;
    const bool nearer = !best || (on ? there.first < along(At(*best)).first
                                     : there.Last() > along(At(*best)).Last());
    if (nearer) best = i;
  }
  if (!best) return std::nullopt;
  // The lane stays, whatever the cell reaches over.
  const Range there = along(At(*best));
  const int position = on ? there.first : there.Last();
  return along_row ? Place{*best, lane, position} : Place{*best, position, lane};
}

std::vector<std::size_t> TableGrid::ColumnHeaders(std::size_t cell) const {
  return Headers(cell, Side::Columns);
}

std::vector<std::size_t> TableGrid::RowHeaders(std::size_t cell) const {
  return Headers(cell, Side::Rows);
}

std::vector<std::size_t> TableGrid::NamedHeaders(const PageCell& cell, Side side) const {
  std::vector<std::size_t> headers;
  for (const std::size_t each : cell.headers) {
    const PageCell& header = At(each);
    const bool plain = header.heads_columns == header.heads_rows;
    const bool of_column = plain ? header.row < cell.row : header.heads_columns;
    if (of_column == (side == Side::Columns)) headers.push_back(each);
  }
  return headers;
}

// The way of browsers: back from the cell, and a header is no longer one when behind it,
// with data between, another one of the same extent has come.
std::vector<std::size_t> TableGrid::Headers(std::size_t cell, Side side) const {
  const PageCell& of = At(cell);
  if (!of.headers.empty()) return NamedHeaders(of, side);
  const auto along = [&](const PageCell& each) {
    return side == Side::Columns ? Rows(each) : Columns(each);
  };
  const auto across = [&](const PageCell& each) {
    return side == Side::Columns ? Columns(each) : Rows(each);
  };
  std::vector<std::size_t> before;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const PageCell& each = cells_[i];
    if (along(each).Last() < along(of).first && across(each).Meets(across(of))) before.push_back(i);
  }
  std::stable_sort(before.begin(), before.end(), [&](std::size_t a, std::size_t b) {
    return along(At(a)).first > along(At(b)).first;
  });
  std::vector<std::size_t> headers;
  std::set<std::pair<int, int>> replaced;  // first and count of each
  std::vector<Range> block;
  if (IsHeader(of)) block.push_back(across(of));
  for (const std::size_t i : before) {
    const PageCell& each = At(i);
    if (!IsHeader(each)) {
      for (const Range& range : block) replaced.emplace(range.first, range.count);
      block.clear();
      continue;
    }
    const Range extent = across(each);
    block.push_back(extent);
    const bool heads = side == Side::Columns ? each.heads_columns : each.heads_rows;
    const bool is_replaced = replaced.contains({extent.first, extent.count});
    if (heads && !is_replaced) headers.push_back(i);
  }
  if (side == Side::Rows) AddGroupHeaders(cell, headers);
  std::sort(headers.begin(), headers.end(), [&](std::size_t a, std::size_t b) {
    return std::tuple(At(a).row, At(a).column) < std::tuple(At(b).row, At(b).column);
  });
  return headers;
}

void TableGrid::AddGroupHeaders(std::size_t cell, std::vector<std::size_t>& headers) const {
  const PageCell& of = At(cell);
  const std::set<std::size_t> known(headers.begin(), headers.end());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const PageCell& each = cells_[i];
    if (i == cell || of.row < each.row || of.row >= each.heads_until) continue;
    if (each.column > of.column) continue;
    if (!known.contains(i)) headers.push_back(i);
  }
}

}  // namespace corvane
