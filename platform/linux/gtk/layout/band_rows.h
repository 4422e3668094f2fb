#pragma once

#include <cstddef>
#include <vector>

namespace corvane::desktop {

/// What the layout of a strip needs to know of a band. Lengths in pixels.
struct BandSize {
  int least = 0;        ///< narrower than this it is never
  int wish = 0;         ///< the width that it was given; the row's last band gets what is left
  int height = 0;       ///< what it needs
  bool breaks = false;  ///< it starts a row
};

/// Where a band stands.
struct BandSpot {
  std::size_t row = 0;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;  ///< of its row
};

/// Places bands from left to right, row by row, in a strip of that width. A band
/// that does not fit any more starts a row, too.
std::vector<BandSpot> PlaceBands(const std::vector<BandSize>& bands, int width);

/// A point in the strip.
struct StripPoint {
  int x = 0;
  int y = 0;
};

/// Bands in a new order: which band stands where, and their sizes as they are now.
struct BandOrder {
  std::vector<std::size_t> from;  ///< the place that each band had before
  std::vector<BandSize> bands;
};

/// What becomes of the bands when one is dragged: its grip was taken `grab` pixels
/// from its left and the pointer is at that point. Within its row the band moves the
/// border to the one before it and in the end changes places with that one; the
/// first of a row changes places with the second. Over another row it goes there,
/// below all of them it gets a row of its own.
BandOrder DragBand(const std::vector<BandSize>& bands, int width, std::size_t dragged,
                   StripPoint pointer, int grab);

}  // namespace corvane::desktop
