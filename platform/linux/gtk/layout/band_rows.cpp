#include "platform/linux/gtk/layout/band_rows.h"

#include <algorithm>
#include <numeric>

namespace corvane::desktop {
namespace {

using Row = std::vector<std::size_t>;  // bands by their places

std::vector<Row> RowsOf(const std::vector<BandSize>& bands, int width) {
  std::vector<Row> rows;
  int used = 0;
  for (std::size_t i = 0; i < bands.size(); ++i) {
    if (rows.empty() || bands[i].breaks || used + bands[i].least > width) {
      rows.emplace_back();
      used = 0;
    }
    used += bands[i].least;
    rows.back().push_back(i);
  }
  return rows;
}

int LeastOf(const std::vector<BandSize>& bands, const Row& row, std::size_t from) {
  int sum = 0;
  for (std::size_t k = from; k < row.size(); ++k) sum += bands[row[k]].least;
  return sum;
}

int Centre(const BandSpot& spot) { return spot.left + spot.width / 2; }

// The bands in the order of the rows. Whatever was moved to another row would
// flow back if the rows did not hold on to their first bands.
BandOrder Flattened(const std::vector<BandSize>& bands, const std::vector<Row>& rows,
                    bool hold_rows) {
  BandOrder order;
  for (const auto& row : rows) {
    for (const std::size_t band : row) {
      BandSize size = bands[band];
      if (hold_rows) size.breaks = band == row.front() && !order.from.empty();
      order.from.push_back(band);
      order.bands.push_back(size);
    }
  }
  return order;
}

// Two neighbours change places; the row begins where and as it did.
void ChangePlaces(std::vector<BandSize>& bands, Row& row, std::size_t left) {
  if (left == 0) std::swap(bands[row[0]].breaks, bands[row[1]].breaks);
  std::swap(row[left], row[left + 1]);
}

}  // namespace

std::vector<BandSpot> PlaceBands(const std::vector<BandSize>& bands, int width) {
  std::vector<BandSpot> spots(bands.size());
  const auto rows = RowsOf(bands, width);
  int top = 0;
  for (std::size_t r = 0; r < rows.size(); ++r) {
    const Row& row = rows[r];
    int height = 0;
    for (const std::size_t band : row) height = std::max(height, bands[band].height);
    int left = 0;
    for (std::size_t k = 0; k < row.size(); ++k) {
      const BandSize& band = bands[row[k]];
      const int room = width - left - LeastOf(bands, row, k + 1);
      const bool last = k + 1 == row.size();
      const int wide = last ? room : std::min(std::max(band.least, band.wish), room);
      spots[row[k]] = {r, left, top, std::max(wide, band.least), height};
      left += spots[row[k]].width;
    }
    top += height;
  }
  return spots;
}

BandOrder DragBand(const std::vector<BandSize>& bands, int width, std::size_t dragged,
                   StripPoint pointer, int grab) {
  auto sizes = bands;
  auto rows = RowsOf(bands, width);
  const auto spots = PlaceBands(bands, width);
  const BandSpot& here = spots[dragged];
  const int bottom = spots.back().top + spots.back().height;
  Row& own = rows[here.row];
  const auto at =
      static_cast<std::size_t>(std::find(own.begin(), own.end(), dragged) - own.begin());

  if (pointer.y >= bottom) {
    if (own.size() == 1 && here.row + 1 == rows.size()) return Flattened(sizes, rows, false);
    own.erase(own.begin() + static_cast<std::ptrdiff_t>(at));
    rows.push_back({dragged});
    return Flattened(sizes, rows, true);
  }

  std::size_t over = 0;
  while (over + 1 < rows.size() && pointer.y >= spots[rows[over + 1].front()].top) ++over;
  if (over != here.row) {
    own.erase(own.begin() + static_cast<std::ptrdiff_t>(at));
    Row& row = rows[over];
    const auto behind = std::find_if(
        row.begin(), row.end(), [&](std::size_t band) { return Centre(spots[band]) > pointer.x; });
    row.insert(behind, dragged);
    return Flattened(sizes, rows, true);
  }

  if (at > 0) {
    const std::size_t before = own[at - 1];
    const int room = width - spots[before].left - LeastOf(bands, own, at);
    const int wide = std::min(pointer.x - grab - spots[before].left, room);
    sizes[before].wish = std::max(wide, sizes[before].least);
    if (wide < sizes[before].least / 2) ChangePlaces(sizes, own, at - 1);
  } else if (own.size() > 1 && pointer.x > Centre(spots[own[1]])) {
    ChangePlaces(sizes, own, 0);  // the first has no border to push
  }
  return Flattened(sizes, rows, false);
}

}  // namespace corvane::desktop
