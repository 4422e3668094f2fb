#pragma once

#include <string>

namespace corvane::desktop {

/// Prints plain text on the user's default printer, in the background. With an
/// `pdf` path it writes the pages into that file instead.
void PrintText(const std::string& text, const std::string& pdf = "");

}  // namespace corvane::desktop
