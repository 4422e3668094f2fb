#include "access/CaretEcho.h"

#include <algorithm>

#include "access/FieldKinds.h"
#include "base/text.h"

namespace corvane {

void CaretEcho::Enter(const HTMLElement& field) {
  crossing_.Hold(field);
  reached_.Follow(field);
}

void CaretEcho::Follow(const HTMLElement& field) {
  crossing_.Follow(field);
  reached_.Follow(field);
}

std::string CaretEcho::Heard(const HTMLElement& field, const Manner& manner) {
  const bool is_told = field.caret.known && !(manner.hide_passwords && IsSecret(field));
  const std::string reached = reached_.Reached(field);
  const std::string crossed = manner.today ? crossing_.Done(field) : crossing_.Crossed(field);
  return corvane::Heard(field, manner.field_caret && is_told ? reached : crossed, manner);
}

std::string TextOnEntry(const HTMLElement& area, const Manner& manner) {
  if (!manner.field_caret) return area.value;
  if (area.caret.line) return *area.caret.line;
  const std::size_t length = text::length(area.value);
  const auto after = static_cast<std::size_t>(std::max(area.caret.text_after, 0));
  return LineAt(area.value, length - std::min(length, after));
}

}  // namespace corvane
