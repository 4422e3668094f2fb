#pragma once

#include <functional>

#include "platform/field_focus.h"
#include "platform/linux/access/access_bus.h"

namespace corvane::desktop::reader {

/// What the element that has the focus below a page's document shows; an empty answer
/// when nothing has it. On the bus's thread.
void ReadFocus(AccessBus& bus, const ElementRef& document,
               std::function<void(const FieldFocus&)> done);

}  // namespace corvane::desktop::reader
