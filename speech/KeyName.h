#pragma once

#include <string>

namespace corvane {

/// The name of a key that has one of its own, such as "Escape"; empty for others.
std::string NamedKey(int key_code);

/// What a key is called aloud: the named keys by their names, every other key by
/// the character whose code its key code is. Empty for a key without a code.
std::string KeyName(int key_code);

/// Whether the key writes a character into a field.
bool WritesCharacter(int key_code);

}  // namespace corvane
