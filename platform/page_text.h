#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/element_facts.h"

namespace corvane {

/// Tells an element of a page apart from all others, also when the page is read again.
struct PageElement {
  std::string document;  ///< the name of its document; empty for no element
  int number = 0;

  bool operator==(const PageElement&) const = default;
};

/// Where an element of a page stands in the page's text. Positions and lengths are
/// counted in characters.
struct PageSpan {
  enum class Kind {
    Heading = 1,  ///< `level`: of it
    Link,
    Button,
    Edit,
    CheckBox,
    Radio,
    Choice,  ///< a combo or list box
    Picture,
    Landmark,
    List,   ///< `level`: how many items it has
    Item,   ///< `level`: its number, 0 for none; `more`: 1 when it has a mark instead
    Table,  ///< `level`: rows; `more`: columns
    Cell,   ///< of a table; the only kind whose `length` may be 0
    Quotation,
    Frame,     ///< a frame, an object, media
    Language,  ///< of what it holds: the name in `facts`
    Widget,    ///< what else a page lets its user work with
    Place,     ///< where the page's focus may be, though it is nothing in particular
  };
  static constexpr int kKinds = 18;

  Kind kind = Kind::Heading;
  int start = 0;
  int length = 0;  ///< at least 1, but of a cell
  int level = 0;
  int more = 0;
  int document = 0;      ///< in PageText::documents
  int number = 0;        ///< of the element, in its document
  bool visited = false;  ///< of a link: its page has been shown before, as far as is known
  /// What else is known of it; null for what has no more than its text.
  ElementFactsPtr facts;

  int End() const { return start + length; }
};

/// Where a cell lies in its table. Rows and columns are counted from 1; where a page
/// shows a part of a table only, its numbers hold, so some may be missing.
struct PageCell {
  std::size_t span = 0;  ///< in PageText::spans
  int row = 1;
  int column = 1;
  int rows = 1;  ///< that it reaches over
  int columns = 1;
  bool heads_columns = false;
  bool heads_rows = false;
  int heads_until = 0;  ///< of a header of a group of rows: the row behind the group
  /// The cells that the page names as its headers, by their index; else its place tells.
  std::vector<std::size_t> headers;
};

/// A table whose cells are known.
struct PageTable {
  std::size_t span = 0;         ///< in PageText::spans
  std::vector<PageCell> cells;  ///< in the order of the text
};

/// The text of a page, as it is shown, and its elements in it.
struct PageText {
  std::string text;  ///< lines end with "\n"
  int length = 0;    ///< characters
  /// By their first character; of those that begin together the outer one first.
  std::vector<PageSpan> spans;
  std::vector<std::string> documents;
  std::vector<PageTable> tables;  ///< those inside of others in front of these
  int selected = -1;              ///< where what is selected in the page begins; -1: nothing is
  int target = -1;                ///< where what the page's address names begins; -1: nothing

  PageElement ElementOf(const PageSpan& span) const {
    return {documents[static_cast<std::size_t>(span.document)], span.number};
  }
};

using PageTextPtr = std::shared_ptr<const PageText>;

}  // namespace corvane
