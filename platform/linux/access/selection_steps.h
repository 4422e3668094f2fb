#pragma once

#include <vector>

namespace corvane::desktop {

/// What to ask of a container that keeps a selection among its children.
struct SelectionSteps {
  bool clear = false;       ///< first
  std::vector<int> select;  ///< children by their indexes, counted from 0
  bool operator==(const SelectionSteps&) const = default;
};

/// Whether the flags (AccessibleSelection) ask for a change of what is selected.
bool ChangesSelection(int flags);

/// What the flags ask for a child where these children are selected, in ascending
/// order. A selection is extended from the first of them. What is taken off a
/// selection is left out of a new one: toolkits do not agree on how a child is
/// deselected.
SelectionSteps StepsFor(int flags, int child, const std::vector<int>& selected);

}  // namespace corvane::desktop
