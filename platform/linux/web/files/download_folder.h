#pragma once

#include <string>

namespace corvane::desktop {

/// The user's folder for what comes from the network.
std::string DownloadFolder();

}  // namespace corvane::desktop
