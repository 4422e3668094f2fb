#pragma once

#include <gtk/gtk.h>

#include <optional>

#include "platform/accessible.h"
#include "platform/linux/access/access_bus.h"

/// What the toolkit knows of the program's own windows.
namespace corvane::desktop {

/// Where a page's process has put its elements; nothing while there are none.
std::optional<ElementRef> PlugOf(AtkObject* object);

/// The innermost element of the program's own windows at a point of the screen;
/// null where another program's window, or none, lies. To be released.
AtkObject* OwnElementAt(ScreenPoint point);

/// Where a widget's upper left corner is on the screen.
ScreenPoint OriginOf(GtkWidget* widget);

ScreenPoint PointerOnScreen();

/// The caret of the control that has the focus, in pixels of that control; 0, 0
/// without one.
ScreenPoint CaretInControl();

}  // namespace corvane::desktop
