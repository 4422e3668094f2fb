#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace corvane::desktop {

/// Section and key of a value.
using IniKey = std::pair<std::string, std::string>;
using IniValues = std::map<IniKey, std::string>;

/// A name as a file name: nothing in it leads out of its folder.
std::string LastPartOf(const std::string& name);

/// Reads a settings file's text; nothing when it is not one.
std::optional<IniValues> ParseIni(const std::string& text);

/// Writes a settings file's text.
std::string FormatIni(const IniValues& values);

/// The whole file; nothing when it cannot be read or has over 16 million bytes.
std::optional<std::string> ReadWholeFile(const std::string& path);

/// Replaces a file in one step, readable by its owner only; makes its folder.
/// False when that is not possible.
bool ReplaceFile(const std::string& path, const std::string& text);

}  // namespace corvane::desktop
