#include "browser/reading/ElementLists.h"

#include <algorithm>

#include "base/language.h"
#include "base/text.h"
#include "browser/reading/TextKinds.h"

namespace corvane {
namespace {

using Kind = PageSpan::Kind;

constexpr int kLongestWords = 300;  // characters of an entry

// What all entries of the list are is not said of each.
std::string EntryWords(const TextMap& map, const PageSpan& span) {
  PageSpan shown = span;
  shown.length = std::min(span.length, kLongestWords);
  switch (span.kind) {
    case Kind::Heading:
      return map.Words(shown) + (span.level > 0 ? ", level " + std::to_string(span.level) : "");
    case Kind::Link:
      return map.Words(shown) + (span.visited ? ", visited" : "");
    case Kind::Picture:
      return map.Words(shown);
    default:
      return language::Unmarked(ReachedWords(map, shown));
  }
}

}  // namespace

std::string NameOf(ElementList list) {
  switch (list) {
    case ElementList::Headings:
      return "Headings";
    case ElementList::Links:
      return "Links";
    case ElementList::Fields:
      return "Fields and buttons";
    case ElementList::Landmarks:
      return "Landmarks";
    case ElementList::Tables:
      return "Tables";
    case ElementList::Pictures:
      return "Pictures";
  }
  return {};
}

bool BelongsTo(ElementList list, const PageSpan& span) {
  switch (list) {
    case ElementList::Headings:
      return span.kind == Kind::Heading;
    case ElementList::Links:
      return span.kind == Kind::Link;
    case ElementList::Fields:
      return IsField(span);
    case ElementList::Landmarks:
      return span.kind == Kind::Landmark;
    case ElementList::Tables:
      return span.kind == Kind::Table;
    case ElementList::Pictures:
      return span.kind == Kind::Picture;
  }
  return false;
}

std::vector<ListedElement> Listed(const TextMap& map, ElementList list) {
  std::vector<ListedElement> elements;
  for (const PageSpan& span : map.Page().spans) {
    if (!BelongsTo(list, span)) continue;
    const int level = list == ElementList::Headings ? span.level : 0;
    elements.push_back({map.Page().ElementOf(span), span.start, level, EntryWords(map, span)});
  }
  return elements;
}

std::vector<std::size_t> Narrowed(const std::vector<ListedElement>& elements,
                                  const std::string& typed) {
  const std::string wanted = text::lower(typed);
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (wanted.empty() || text::lower(elements[i].words).find(wanted) != std::string::npos) {
      found.push_back(i);
    }
  }
  return found;
}

}  // namespace corvane
