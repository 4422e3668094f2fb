#pragma once

#include <string>

#include "platform/voice.h"

namespace corvane::desktop {

/// The voices that espeak-ng has in its folder of data, from their files: the library
/// itself is busy on another thread. Nothing when they cannot be read. Some 130 small
/// files, a few milliseconds.
InstalledVoices ReadInstalledVoices(const std::string& data_folder);

}  // namespace corvane::desktop
