#pragma once

#include <gtkmm/widget.h>

#include <string>

namespace corvane::desktop {

/// What is to be said of any widget that has got the focus: its name, its kind and
/// its value, as its accessible object tells them. Empty when it has nothing to
/// tell.
std::string FocusWords(Gtk::Widget& widget);

}  // namespace corvane::desktop
