#pragma once

#include <gtk/gtk.h>

#include <optional>
#include <vector>

#include "platform/accessible.h"
#include "platform/linux/access/access_bus.h"

/// What the toolkit knows of the program's own windows.
namespace corvane::desktop {

/// Where a page's process has put its elements; nothing while there are none.
std::optional<ElementRef> PlugOf(AtkObject* object);

/// The innermost element of one of the program's own top-level windows at a point
/// of the screen, or null. To be released.
AtkObject* OwnElementAt(GtkWidget* top, ScreenPoint point);
/// The program's own top-level windows that are on the screen at a point; menus
/// and the like, which lie over all windows, or the others.
std::vector<GtkWidget*> OwnWindowsAt(ScreenPoint point, bool menus);

/// Where a widget's upper left corner is on the screen.
ScreenPoint OriginOf(GtkWidget* widget);

ScreenPoint PointerOnScreen();

/// The element of the control that has the focus; null without one.
AtkObject* FocusedElement();

/// The caret of the control that has the focus, in pixels of that control; 0, 0
/// without one.
ScreenPoint CaretInControl();

}  // namespace corvane::desktop
