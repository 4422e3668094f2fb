#include "platform/linux/web/page/field_focus.h"

#include <algorithm>

#include "base/text.h"
#include "platform/linux/web/page/page_record.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestPart = 100;
constexpr std::size_t kLongestLineHeard = 1000;
constexpr const char* kEmptyPart = "empty";

}  // namespace

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

}  // namespace corvane::desktop
