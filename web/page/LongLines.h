#pragma once

#include <string>

namespace corvane {

/// The longest line, in characters, that page text may have.
inline constexpr int kLongestLine = 4000;

/// The text with every line longer than `longest` characters broken: at the last
/// blank that leaves it no longer, which becomes the line break, or just after
/// that length where there is none. A text view lays out one very long paragraph for
/// many seconds, so such a paragraph never leaves this folder.
std::string BreakLongLines(std::string text, int longest = kLongestLine);

}  // namespace corvane
