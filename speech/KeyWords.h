#pragma once

#include <string>

#include "platform/hooks.h"

namespace corvane {

/// What a key is called aloud, in words: a special key by its name ("Print Screen",
/// "keypad 7"), any other by what it types in the user's layout, and that by its
/// name where it is no letter and no digit ("comma"). Empty for a key without a code.
std::string KeyWords(const PressedKey& key);

}  // namespace corvane
