#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "browser/reading/TextMap.h"

namespace corvane {

/// The kinds of elements that are listed, in the order in which they are offered.
enum class ElementList { Headings, Links, Fields, Landmarks, Tables, Pictures };
inline constexpr int kElementLists = 6;

/// An element of the page's text in a list.
struct ListedElement {
  PageElement element;
  int start = 0;      ///< in the text
  int level = 0;      ///< of a heading; 0 for others
  std::string words;  ///< what it is called
};

/// What a list is called: "Headings", "Fields and buttons".
std::string NameOf(ElementList list);

/// Whether the element belongs to the list.
bool BelongsTo(ElementList list, const PageSpan& span);

/// All elements of the list, in the order of the text.
std::vector<ListedElement> Listed(const TextMap& map, ElementList list);

/// Those whose words hold what was typed, whatever its case; by index.
std::vector<std::size_t> Narrowed(const std::vector<ListedElement>& elements,
                                  const std::string& typed);

}  // namespace corvane
