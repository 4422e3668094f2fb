#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>

namespace corvane::desktop {

struct ElementEvent;

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

/// Looks at what has the focus in the page of a view and hands that on, later; an empty
/// one when there is nothing to be seen.
using LookAtFocus =
    std::function<void(GtkWidget* view, std::function<void(const FieldFocus&)> seen)>;

/// Completes what the page told with what was seen.
void Complete(ElementEvent& event, const FieldFocus& focus);

}  // namespace corvane::desktop
