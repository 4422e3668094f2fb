#pragma once

#include <cstdint>
#include <string>

namespace corvane {

/// What an extended error of a common dialog means; empty for a code that has no
/// message.
std::string FileDialogMessage(std::int32_t extended_error);

}  // namespace corvane
