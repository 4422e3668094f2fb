#pragma once

#include <gtk/gtk.h>

namespace corvane::desktop {

/// Makes Alt and an access letter open the same menu of the bar every time. The
/// toolkit takes the titles that share a letter in turn, so that a key would open
/// another menu than it did before. Here the first of them opens; pressed again
/// while that menu is open, the key goes on to the next.
void AnswerLetters(GtkMenuItem* title);
/// The same for the keys that are pressed while a menu of the bar is open.
void AnswerLetters(GtkMenu* submenu);

}  // namespace corvane::desktop
