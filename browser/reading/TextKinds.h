#pragma once

#include <string>

#include "browser/reading/TextMap.h"

namespace corvane {

/// Whether its user gives it something, or presses it.
bool IsField(const PageSpan& span);

/// What an element of a page's text is called: "heading level 2", "link", "list of 3",
/// "table, 3 rows, 2 columns"; empty for what is not said.
std::string KindWords(const PageSpan& span);

/// What an element that has been reached is called: its words, then its kind and what
/// else there is to it: "Prices, heading level 2", "Name, edit, Al, required".
std::string ReachedWords(const TextMap& map, const PageSpan& span);

/// A line of the text, and in it what begins there: "heading level 2, Prices",
/// "list of 3, bullet, first". `start`: of the line in the text. `from`: the first span
/// that is said, for a part of a line.
std::string LineWithKinds(const TextMap& map, int start, const std::string& line,
                          std::size_t from = 0);

}  // namespace corvane
