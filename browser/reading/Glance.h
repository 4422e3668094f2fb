#pragma once

#include <string>

#include "browser/reading/TextMap.h"

namespace corvane {

/// How much of what there is in a page: "2 headings, 1 link, 1 form"; empty where there
/// is none of it.
std::string ContentWords(const TextMap& map, std::size_t forms);

/// Where in the page a place is: "in main, below Prices, 40 percent".
std::string WhereWords(const TextMap& map, int position);

}  // namespace corvane
