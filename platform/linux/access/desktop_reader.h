#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/linux/access/access_bus.h"
#include "platform/linux/access/other_windows.h"

/// Questions about the whole desktop and about places on it. All run on the
/// bus's thread; each answers exactly once unless the bus ends first.
namespace corvane::desktop::reader {

/// Whose coordinates a place is in.
enum class Coordinates : std::uint32_t { Screen = 0, Window = 1 };

/// The windows of all other programs. One that does not answer is left out.
void ReadDesktop(AccessBus& bus, std::function<void(std::vector<OtherWindow>)> done);

/// The innermost element at a point, below an element or that itself; nothing
/// when it does not answer.
void ReadElementAt(AccessBus& bus, const ElementRef& ref, ScreenPoint point,
                   Coordinates coordinates, std::function<void(std::optional<Element>)> done);

/// The element below `document` that has the focus; nothing without one.
void FindFocus(AccessBus& bus, const ElementRef& document,
               std::function<void(std::optional<ElementRef>)> done);

/// Where the caret is in a page, in pixels of the page's view: that of the element
/// below `document` that has the focus; nothing without one.
void ReadCaret(AccessBus& bus, const ElementRef& document,
               std::function<void(std::optional<ScreenPoint>)> done);

}  // namespace corvane::desktop::reader
