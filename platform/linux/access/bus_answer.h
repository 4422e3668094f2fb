#pragma once

#include "platform/accessible.h"
#include "platform/linux/access/access_bus.h"

namespace corvane::desktop {

/// Whether there is an answer and it is of that type. A program may answer anything.
bool IsOfType(const VariantPtr& reply, const char* type);

/// The place in an answer that holds nothing else; empty when there is none. Numbers
/// beyond any screen are cut, so that they can be added.
ScreenRect RectOf(const VariantPtr& reply);

}  // namespace corvane::desktop
