#pragma once

#include <string>

namespace corvane {

/// What other readers see of the field of a page that has the focus, and a page's
/// scripts do not: where the caret is in a field of numbers, which part of a date the
/// user is in. The text comes from the page's process.
struct FieldFocus {
  std::string name;
  std::string text;
  std::string control;    ///< "button", "slider" ...; empty for anything else
  bool is_part = false;   ///< a part of a field of several
  bool is_empty = false;  ///< of a part: the text only shows what belongs there
  int caret = -1;         ///< characters before it; -1: unknown
  int selected = 0;       ///< characters selected
  std::string line;       ///< at the caret, as it is shown
};

}  // namespace corvane
