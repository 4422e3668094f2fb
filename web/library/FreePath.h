#pragma once

#include <functional>
#include <string>

namespace corvane {

/// A path in the folder for a file of that name that does not exist yet: with
/// " 2", " 3" ... before the ending where the name is taken. `taken` tells of paths
/// that will exist soon.
std::string FreePath(const std::string& folder, const std::string& name,
                     const std::function<bool(const std::string& path)>& taken = nullptr);

}  // namespace corvane
