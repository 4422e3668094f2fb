#pragma once

#include <functional>
#include <string>

namespace corvane::desktop {

/// The text as a file's name, without anything that a file system, a shell or a
/// person could mistake: no path, no control characters, not hidden, not too
/// long. An ending like ".pdf" is kept. `fallback` stands for a name of which
/// nothing is left.
std::string CleanFileName(const std::string& name, const std::string& fallback);

/// A path in the folder for a file of that name that does not exist yet: with
/// " 2", " 3" ... before the ending where the name is taken. `taken` tells of paths
/// that will exist soon.
std::string FreePath(const std::string& folder, const std::string& name,
                     const std::function<bool(const std::string& path)>& taken = nullptr);

/// The user's folder for what comes from the network.
std::string DownloadFolder();

}  // namespace corvane::desktop
