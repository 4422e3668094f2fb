#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/desktop.h"

namespace corvane {

/// A picture that bands can have behind them.
class PictureHolder {
 public:
  virtual ~PictureHolder() = default;
  virtual std::uint64_t Picture() const = 0;
};

/// A toolbar control whose inner toolbar window can be made flat.
class ToolbarControl {
 public:
  virtual ~ToolbarControl() = default;
  virtual WindowHandle hwnd() const = 0;
  virtual void Refresh() = 0;
};

/// A strip of movable bands over the platform's band window: settles the strip's
/// style, the bands' layout values and the order of tear-down. Lengths in pixels
/// unless a control's own twips are meant.
class CRebar {
 public:
  explicit CRebar(Desktop& desktop);

  ElasticFrame* Parent() const { return parent_; }
  void SetParent(ElasticFrame* container) { parent_ = container; }
  void SetImageForRebar(PictureHolder* holder) { image_ = holder; }

  /// Makes the strip in the parent; false without a parent.
  bool Create();
  /// Appends a band that holds `child`. It starts a new row when `new_row` is 1,
  /// with any other value it continues the present one. A
  /// minimum width counts in the screen's units per pixel; without one it is
  /// the child's own width.
  void AddBands(const std::string& caption, int band_id, Control& child, int new_row,
                std::optional<int> minimum_width = std::nullopt);
  /// The id of the band at a numeric `index`, nothing for anything else.
  std::optional<std::int32_t> GetBandId(const std::string& index) const;
  /// Gives every band the system's present colours.
  void SetBandColors();
  void RemoveBands(int index);
  int BandCount() const;
  /// Hands the first child, its first child and so on down that chain back to
  /// the container, then deletes bands and strip; other children go with it.
  void DestroyRebar();
  /// Makes the strip as wide as the container; it sizes its own height.
  void Resize(const Control& container);
  void Move(int left, int top, int width, int height);
  WindowHandle hwnd() const;
  std::int32_t GetRebarWindow() const { return static_cast<std::int32_t>(hwnd()); }
  /// The height of all rows plus the strip's border of 8 pixels.
  int Heigth() const;
  /// Which window is told of the strip's changes.
  void SetMainParent(WindowHandle window);
  /// Adds the flat style bits to the toolbar's inner window; `flat` adds the
  /// list style to them.
  void TBMakeFlat(ToolbarControl& toolbar, bool flat);

 private:
  int Pixels(float twips) const;

  Desktop& desktop_;
  ElasticFrame* parent_ = nullptr;
  PictureHolder* image_ = nullptr;
  Control* last_child_ = nullptr;
  std::unique_ptr<RebarWindow> window_;
};

}  // namespace corvane
