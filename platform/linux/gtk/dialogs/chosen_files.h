#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/file_dialog.h"

namespace corvane::desktop {

/// Why what was chosen cannot be opened, or saved to, in words for the user; empty
/// when nothing is against it.
std::string Refusal(FileDialog::Kind kind, std::uint32_t flags,
                    const std::vector<std::string>& paths);

/// Writes chosen paths into a file dialog's record the way such a dialog does: one
/// path as it is; several, with the flag for them, as the folder and the names,
/// divided by NUL in the Explorer style and by a blank in the old one. Paths of
/// several are in one folder. False, and nothing written, when the record's buffer
/// is too small.
bool FillChosen(OpenFileName& record, const std::vector<std::string>& paths);

/// The descriptions and patterns of a filter text.
std::vector<std::pair<std::string, std::string>> FilterPairs(const std::string& filter);

/// The path with the default extension when it has none.
std::string WithExtension(const std::string& path, const std::string& extension);

}  // namespace corvane::desktop
