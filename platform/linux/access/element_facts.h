#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/linux/access/access_bus.h"
#include "platform/linux/access/element.h"

namespace corvane::desktop {

inline constexpr const char* kAccessibleInterface = "org.a11y.atspi.Accessible";

/// What the bus says of an element before it is translated.
struct BusFacts {
  std::string name;
  std::string description;
  std::uint32_t role = 0;
  std::uint64_t states = 0;
  int child_count = 0;
};

/// The two words of a list of states.
std::uint64_t StatesOf(GVariant* words);

/// Text of a page without the marks of embedded elements, on one line.
std::string PlainText(const std::string& text);

/// Makes an element of the facts and of what they lack: its value, and the text
/// of one that has no name. On the bus's thread.
void Complete(AccessBus& bus, const ElementRef& ref, const BusFacts& facts,
              std::function<void(Element)> done);

}  // namespace corvane::desktop
