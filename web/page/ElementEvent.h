#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/element_facts.h"
#include "platform/field_focus.h"
#include "platform/html_document.h"

namespace corvane {

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

/// Reads what the page script wrote; see RecordJson.h.
std::optional<ElementEvent> ParseElementEvent(std::string_view json);

/// Completes what the page told with what was seen.
void Complete(ElementEvent& event, const FieldFocus& focus);

/// Takes over into the element what the event brought.
void Apply(const ElementEvent& event, HTMLElement& element);

}  // namespace corvane
