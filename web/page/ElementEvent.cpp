#include "web/page/ElementEvent.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "base/safe_name.h"
#include "base/text.h"
#include "web/address/OwnAddress.h"
#include "web/page/ElementRecord.h"
#include "web/page/FactsRecord.h"

namespace corvane {
namespace {

using namespace record;

constexpr std::size_t kLongestPart = 100;
constexpr std::size_t kLongestLineHeard = 1000;
constexpr const char* kEmptyPart = "empty";

std::optional<ElementEvent::Kind> KindOf(const std::string& name) {
  using Kind = ElementEvent::Kind;
  if (name == "focus") return Kind::Focus;
  if (name == "keyup") return Kind::KeyUp;
  if (name == "change") return Kind::Change;
  if (name == "state") return Kind::State;
  if (name == "leave") return Kind::Leave;
  return std::nullopt;
}

// [selected, after, known], what the key did to the text, [how far it leads, whether
// it selects], the line
ElementCaret CaretOf(const Json& event) {
  const Json& caret = Member(event, "caret");
  const Json& step = Member(event, "step");
  ElementCaret result{NumberOf(At(caret, 0), 0), NumberOf(At(caret, 1), 0), IsSet(At(caret, 2))};
  const int edit = NumberOf(Member(event, "edit"), 0);
  if (edit == 1) result.edit = ElementCaret::Edit::Typed;
  if (edit == 2) result.edit = ElementCaret::Edit::Removed;
  const int far = NumberOf(At(step, 0), 0);
  if (far > 0 && far <= 3) result.step = static_cast<ElementCaret::Step>(far);
  result.extends = IsSet(At(step, 1));
  const Json& line = Member(event, "line");
  if (line.is_string()) result.line = TextOf(line);
  return result;
}

}  // namespace

std::optional<ElementEvent> ParseElementEvent(std::string_view text) {
  const Json json = Parse(text);
  ElementEvent event;
  const auto kind = KindOf(TextOf(Member(json, "kind")));
  if (!kind) return std::nullopt;
  event.kind = *kind;
  event.document_id = TextOf(Member(json, "document"));
  event.number = NumberOf(Member(json, "number"), 0);
  event.href = ShownAddress(TextOf(Member(json, "href")));
  event.facts = FactsOf(Member(json, "facts"));
  event.with_focus = IsSet(Member(json, "fresh"));
  const Json& state = Member(json, "state");
  event.has_state = state.is_array();
  event.value = TextOf(At(state, 0));
  event.status = IsSet(At(state, 1));
  event.selectedIndex = NumberOf(At(state, 2), -1);
  event.options = TextsOf(At(state, 3));
  event.chosen = NumbersOf(At(state, 4));
  event.caret = CaretOf(json);
  event.unasked = IsSet(Member(json, "unasked"));
  event.again = IsSet(Member(json, "again"));
  const int look = NumberOf(Member(json, "look"), 0);
  event.look = look >= 1 && look <= 3;
  event.look_at_line = look == 2;
  event.look_at_control = look == 3;
  std::unordered_map<int, HTMLElementPtr> alone;
  Elements elements(alone);
  const Json& field = Member(json, "field");
  const Json& link = Member(json, "link");
  if (field.is_array()) event.described = FieldOf(field, elements);
  if (const auto links = LinksOf(link, elements); !links.empty()) event.described = links.front();
  return event;
}

void Complete(ElementEvent& event, const FieldFocus& focus) {
  if (event.look_at_line) {
    if (focus.caret >= 0) event.caret.line = Shorten(focus.line, kLongestLineHeard);
    return;
  }
  if (event.look_at_control) {
    event.part = focus.control;
    event.part_value = focus.control.empty() ? "" : Shorten(focus.name, kLongestPart);
    return;
  }
  if (focus.is_part) {
    event.part = Shorten(focus.name, kLongestPart);
    event.part_value = focus.is_empty ? kEmptyPart : Shorten(focus.text, kLongestPart);
    return;
  }
  if (focus.caret < 0) return;
  // What is not yet a number or an address is no value of the field, but stands there.
  event.value = focus.text;
  const int length = static_cast<int>(text::length(focus.text));
  event.caret.text_after = std::max(0, length - focus.caret);
  event.caret.selection_length = std::clamp(focus.selected, 0, length);
  event.caret.known = true;
}

void Apply(const ElementEvent& event, HTMLElement& element) {
  if (event.facts) {
    element.facts_before = std::exchange(element.facts, event.facts);
    element.changed_with_focus = event.with_focus;
  }
  if (event.look_at_control) {
    element.part = event.part;
    element.part_value = event.part_value;
  }
  if (!event.has_state) return;
  element.value = event.value;
  element.status = event.status;
  element.selectedIndex = event.selectedIndex;
  element.options = event.options;
  element.chosen = event.chosen;
  element.caret = event.caret;
  element.part = event.part;
  element.part_value = event.part_value;
}

}  // namespace corvane
