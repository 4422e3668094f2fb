#pragma once

#include <string>

#include "platform/voice.h"

namespace corvane::desktop {

/// The voices that espeak-ng has in its folder of data, from their files: the library
/// itself is busy on another thread. Nothing when they cannot be read. Some 130 small
/// files, a few milliseconds.
InstalledVoices ReadInstalledVoices(const std::string& data_folder);

/// Whether there is a voice that espeak-ng would find under this name, variants left aside.
bool HasVoiceFile(const std::string& data_folder, const std::string& name);

}  // namespace corvane::desktop
