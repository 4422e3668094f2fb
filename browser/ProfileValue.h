#pragma once

#include <string>

#include "platform/file_system.h"

namespace corvane {

/// The characters of a profile file's value that are read. The reader's buffer has 128;
/// it is given one less, and keeps one of them for its own terminator.
inline constexpr std::size_t kProfileBuffer = 128;
inline constexpr std::size_t kLongestProfileValue = kProfileBuffer - 2;

/// One value of an Internet shortcut or other profile file, cut to the longest that is
/// read; empty when it is not there.
inline std::string ProfileValue(const FileSystem& files, const std::string& section,
                                const std::string& key, const std::string& file) {
  return files.GetPrivateProfileString(section, key, kProfileBuffer - 1, file);
}

}  // namespace corvane
