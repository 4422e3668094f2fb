#pragma once

#include <functional>

#include "browser/Navigation.h"
#include "browser/PaneContext.h"

namespace corvane {

/// Goes from one area of the pane to the next; each says what it is as it gets
/// the focus. Areas that are hidden are passed over. A dialog of the page that has
/// opened without taking the focus is gone to first, once.
class PaneAreas {
 public:
  PaneAreas(PaneContext& pane, Navigation& navigation);

  /// Focuses the next area, or the one before.
  void Next();
  void Previous() { Go(-1); }
  /// Makes a change that may take the user's area off the screen or out of its place:
  /// the focus comes back to it, or goes to the next that is shown.
  void KeepFocus(const std::function<void()>& change);

 private:
  void Go(int step);
  void Enter(int area);
  void Focus(int area);

  PaneContext& pane_;
  Navigation& navigation_;
  Connections connections_;
};

}  // namespace corvane
