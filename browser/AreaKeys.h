#pragma once

#include <optional>
#include <span>
#include <string>

#include "browser/PaneContext.h"

namespace corvane {

/// A key that the area in which the user is has for its own, and what it does there.
struct AreaKey {
  unsigned areas;  ///< a bit for each PaneArea
  int KeyCode;
  int Shift;  ///< ShiftBits, exactly
  const char* does;
};

/// All keys of the areas, but for the quick keys. Of two rows for one
/// key the first holds.
std::span<const AreaKey> AllAreaKeys();

/// What a key does in an area, in a few words as they follow the key's name; nothing where
/// it is not the area's own.
std::optional<std::string> WhatKeyOfAreaDoes(int area, const KeyEvent& key);

}  // namespace corvane
