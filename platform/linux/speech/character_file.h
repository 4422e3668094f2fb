#pragma once

#include <map>
#include <string>

namespace corvane::desktop {

/// A speaking character as its file describes it (docs/talker-format.md).
struct CharacterFile {
  std::string name;
  std::string voice;  ///< the synthesizer's name for it
  /// The same of other languages, by language::Primary.
  std::map<std::string, std::string> languages;
  int pitch_shift = 0;   ///< added to every pitch asked for, -80..80
  int speed_shift = 0;   ///< words a minute, added to every speed, -200..200
  std::string idle;      ///< path of the picture while silent; may be empty
  std::string speaking;  ///< path of the picture while speaking; may be empty
};

/// Reads the character `name` from a file. RunTimeError, in words for the user,
/// when the file is missing or unreadable, is no character file, has a line that
/// cannot be understood, lacks a name or a voice, or holds another character.
CharacterFile ReadCharacterFile(const std::string& name, const std::string& file);

}  // namespace corvane::desktop
