#pragma once

#include <cstddef>
#include <string>

#include "base/profile_text.h"
#include "base/text.h"
#include "platform/file_system.h"

namespace corvane {

/// The characters of a profile file's value that are read. The reader's buffer has 128;
/// it is given one less, and keeps one of them for its own terminator.
inline constexpr std::size_t kProfileBuffer = 128;
inline constexpr std::size_t kMostOfProfile = 1'000'000;  // bytes of a file that are looked at
inline constexpr std::size_t kLongestProfileValue = kProfileBuffer - 2;

/// One value of an Internet shortcut or other profile file, cut to the longest that is
/// read; empty when it is not there.
inline std::string ProfileValue(const FileSystem& files, const std::string& section,
                                const std::string& key, const std::string& file) {
  const std::string content = files.ReadText(file, kMostOfProfile);
  return text::left(text::valid(profile::value(content, section, key)), kLongestProfileValue);
}

}  // namespace corvane
