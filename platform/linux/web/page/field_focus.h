#pragma once

#include <gtk/gtk.h>

#include <functional>

#include "platform/field_focus.h"

namespace corvane::desktop {

/// Looks at what has the focus in the page of a view and hands that on, later; an empty
/// one when there is nothing to be seen.
using LookAtFocus =
    std::function<void(GtkWidget* view, std::function<void(const FieldFocus&)> seen)>;

}  // namespace corvane::desktop
