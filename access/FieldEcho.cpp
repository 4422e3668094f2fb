#include "access/FieldEcho.h"

#include "access/FieldKinds.h"
#include "access/TextChange.h"

namespace corvane {

void FieldEcho::Enter(const HTMLElement& field) {
  crossing_.Hold(field);
  reached_.Follow(field);
}

void FieldEcho::Follow(const HTMLElement& field) {
  crossing_.Follow(field);
  reached_.Follow(field);
}

std::string FieldEcho::Heard(const HTMLElement& field, const Manner& manner) {
  const bool is_told = field.caret.known && !(manner.hide_passwords && IsSecret(field));
  if (manner.field_caret && is_told) {
    crossing_.Follow(field);
    return reached_.Reached(field);
  }
  reached_.Follow(field);
  const std::string crossed = manner.today ? crossing_.Done(field) : crossing_.Crossed(field);
  return corvane::Heard(field, crossed, manner);
}

std::string TextOnEntry(const HTMLElement& area, const Manner& manner) {
  if (!manner.field_caret) return area.value;
  if (area.caret.line) return *area.caret.line;
  return LineAt(area.value, CharactersBeforeCaret(area));
}

}  // namespace corvane
