#pragma once

#include <gtk/gtk.h>

namespace corvane::desktop {

/// Lets Tab leave the entry for a file's name. The toolkit's own entry keeps the
/// key to complete what was typed, in silence, and so holds whoever cannot see
/// it. To be asked for every key of a dialog first; true when the key was used.
bool TabLeavesEntry(GtkWindow* dialog, const GdkEventKey& event);

}  // namespace corvane::desktop
