#pragma once

#include <gtk/gtk.h>

namespace corvane::desktop {

/// The keys of file dialogs that the toolkit would use otherwise. Tab leaves the entry
/// for a file's name: the toolkit's own entry keeps the key to complete what was typed,
/// in silence, and so holds whoever cannot see it. Alt+Up leads to the folder above the
/// one that has been said, also while the toolkit's row of folders lags behind. To be
/// asked for every key of a dialog first; true when the key was used.
bool ChooserTakesKey(GtkWindow* dialog, const GdkEventKey& event);

/// Where the toolkit's bubble for a new folder shows why it does not take the name that
/// is written in it; null when the focus is not in the bubble.
GtkLabel* NewFolderProblem(GtkWindow* dialog);

}  // namespace corvane::desktop
