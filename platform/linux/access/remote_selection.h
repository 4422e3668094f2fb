#pragma once

#include "platform/linux/access/access_bus.h"

namespace corvane::desktop {

/// Does what the selection flags (AccessibleSelection) ask of an element: in its
/// parent, which keeps the selection. Says nothing of the outcome. On the bus's
/// thread.
void SelectOnBus(AccessBus& bus, const ElementRef& element, int flags);

}  // namespace corvane::desktop
