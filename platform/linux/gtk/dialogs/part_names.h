#pragma once

#include <gtk/gtk.h>

namespace corvane::desktop {

/// Gives the parts of one of the toolkit's own dialogs that can have the focus a
/// name for assistive technologies, where the toolkit has left them without one.
void NameParts(GtkWidget* dialog);

}  // namespace corvane::desktop
