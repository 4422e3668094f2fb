#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/html_document.h"

namespace corvane::desktop {

/// Where a frame lies: its index in its parent, the parent's in its own, from
/// the top. The page itself has an empty place.
using FramePlace = std::vector<int>;

/// What a document says of a frame in it, for frames that say nothing
/// themselves.
struct FrameHint {
  std::string title;
  std::string address;
  bool silent = false;  ///< runs no scripts: its own record will not come
};

/// One document as its record described it.
struct PageRecord {
  std::string document_id;
  FramePlace place;
  std::string origin;      ///< of the document
  std::string top_origin;  ///< of the whole page
  bool silent = false;     ///< the document runs no scripts, so it never tells anything unasked
  HTMLDocumentPtr document;
  std::unordered_map<int, HTMLElementPtr> elements;  ///< by the number that events name
  std::vector<FrameHint> frames;
};

/// What an element's event brings.
struct ElementEvent {
  /// Leave: the focus has left a field whose text is hidden.
  enum class Kind { Focus, KeyUp, Change, State, Leave };
  Kind kind = Kind::Focus;
  std::string document_id;
  int number = 0;
  std::string href;  ///< of a link
  bool has_state = false;
  std::string value;
  bool status = false;
  int selectedIndex = -1;
  std::vector<std::string> options;
  std::vector<int> chosen;
  ElementCaret caret;
  bool unasked = false;          ///< the page's doing, not the user's
  bool again = false;            ///< told once more
  bool look = false;             ///< a script cannot tell all: see FieldFocus
  bool look_at_line = false;     ///< all but the line at the caret
  bool look_at_control = false;  ///< all but the control of a player
  std::string part;              ///< found by looking
  std::string part_value;
  ElementFactsPtr facts;     ///< what the element is to its user; null when it is not told
  bool with_focus = false;   ///< of a state: it has changed as the focus came
  HTMLElementPtr described;  ///< the element itself, where no record holds it
};

/// Reads what the page script wrote. The text comes from a process that a
/// hostile page may have taken over: whatever does not have the right form is
/// left out, and nothing is ever thrown. Safe on any thread.
std::vector<PageRecord> ParseRecords(std::string_view json);
std::optional<PageRecord> ParseRecord(std::string_view json);
std::optional<ElementEvent> ParseElementEvent(std::string_view json);

/// Takes over into the element what the event brought.
void Apply(const ElementEvent& event, HTMLElement& element);

}  // namespace corvane::desktop
