#pragma once

#include <string>

namespace corvane::desktop {

/// The file of that name that is built into the program.
std::string WebResource(const std::string& name);

}  // namespace corvane::desktop
