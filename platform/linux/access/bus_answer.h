#pragma once

#include <optional>
#include <string>

#include "platform/accessible.h"
#include "platform/linux/access/access_bus.h"

namespace corvane::desktop {

/// Whether there is an answer and it is of that type. A program may answer anything.
bool IsOfType(const VariantPtr& reply, const char* type);

/// The place in an answer that holds nothing else; empty when there is none. Numbers
/// beyond any screen are cut, so that they can be added.
ScreenRect RectOf(const VariantPtr& reply);

/// The whole number, or the number, that a property holds.
std::optional<int> IntegerOf(const VariantPtr& property);
std::optional<double> DoubleOf(const VariantPtr& property);
/// The text that a property, or an answer that holds nothing else, is; not longer than
/// `most` bytes, and valid.
std::string TextOf(const VariantPtr& reply, std::size_t most);

}  // namespace corvane::desktop
