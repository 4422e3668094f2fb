#pragma once

#include <cstdint>

#include "platform/desktop.h"

namespace corvane::desktop {

/// A colour of the desktop's theme as 0x00BBGGRR; black for an unknown index.
std::uint32_t ThemeColor(SystemColor index);

}  // namespace corvane::desktop
