#pragma once

#include <atk/atk.h>

#include <cstdint>
#include <string>

namespace corvane::desktop {

/// The product's number of a role (platform/accessible.h), given the bus's or
/// the toolkit's. A role that has none is a grouping.
int RoleOfBus(std::uint32_t role);
int RoleOfToolkit(AtkRole role);

/// What a role is called: in the user's language where the desktop has the
/// words, else in English. Empty for numbers that are no role.
std::string WordsOfRole(int role);

/// The product's state bits, given the bus's 64 states.
std::uint32_t StateOfBus(std::uint64_t states, bool is_protected);
/// The same of one of the program's own elements.
std::uint32_t StateOfToolkit(AtkObject* object);

}  // namespace corvane::desktop
