#pragma once

#include <string>
#include <vector>

#include "platform/linux/speech/character_file.h"

namespace corvane::desktop {

/// A sentence for each voice that a character names and that is not installed: which, and
/// what is to be installed. None while `data_folder` is empty: it is not known.
/// `mbrola_folder`: where the sounds of voices of that kind are.
std::vector<std::string> MissingVoices(const CharacterFile& character,
                                       const std::string& data_folder,
                                       const std::string& mbrola_folder = "/usr/share/mbrola");

}  // namespace corvane::desktop
