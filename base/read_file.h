#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvane {

/// The first bytes of an ordinary file, at most so many; nothing when it cannot be read,
/// or is something else, which might never end.
std::optional<std::string> ReadFile(const std::string& path, std::size_t most);

}  // namespace corvane
