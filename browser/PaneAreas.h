#pragma once

#include "browser/PaneContext.h"

namespace corvane {

/// Goes from one area of the pane to the next; each says what it is as it gets
/// the focus. Areas that are hidden are passed over.
class PaneAreas {
 public:
  explicit PaneAreas(PaneContext& pane);

  /// Focuses the next area, or the one before.
  void Next() { Go(1); }
  void Previous() { Go(-1); }

 private:
  void Go(int step);
  bool Shown(int area) const;
  void Focus(int area);

  PaneContext& pane_;
  Connections connections_;
};

}  // namespace corvane
