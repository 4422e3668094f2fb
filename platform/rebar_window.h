#pragma once

#include <cstdint>
#include <string>

#include "platform/control.h"

namespace corvane {

/// What a band shows and how; `mask` tells which fields count. The layout of
/// the fields follows the record that the original band windows exchange.
struct BandInfo {
  std::uint32_t size = 56;  ///< bytes of the record's form
  std::uint32_t mask = 0;   ///< BandMask bits
  std::uint32_t style = 0;
  std::uint32_t foreground = 0;  ///< colours as 0x00BBGGRR
  std::uint32_t background = 0;
  std::string text;
  int image = 0;
  WindowHandle child = 0;
  int min_child_width = 0;  ///< pixels
  int min_child_height = 0;
  int width = 0;
  std::uint64_t background_bitmap = 0;
  std::uint32_t id = 0;
};

/// A strip of movable bands, each holding one child window, in one or more
/// rows. All lengths are in pixels.
class RebarWindow {
 public:
  virtual ~RebarWindow() = default;
  virtual WindowHandle hwnd() const = 0;
  virtual void Move(int left, int top, int width, int height) = 0;
  virtual void SetVisible(bool visible) = 0;
  /// Inserts at `index`; -1 appends. A child window moves into the band.
  virtual bool InsertBand(int index, const BandInfo& info) = 0;
  virtual bool DeleteBand(int index) = 0;
  virtual int BandCount() const = 0;
  /// Fills the fields that `info.mask` names; false when there is no such band.
  virtual bool GetBandInfo(int index, BandInfo& info) const = 0;
  virtual bool SetBandInfo(int index, const BandInfo& info) = 0;
  virtual int RowCount() const = 0;
  virtual int RowHeight(int row) const = 0;
  /// Which window is told of the strip's changes.
  virtual void SetNotifyParent(WindowHandle window) = 0;
  virtual void Repaint() = 0;
};

}  // namespace corvane
