#include "access/CaretCrossing.h"

#include <algorithm>

#include "access/TextChange.h"
#include "base/text.h"

namespace corvane {
namespace {

/// The characters before the caret; with a selection the number of those selected.
std::size_t PositionIn(const HTMLElement& field) {
  const int selected = field.caret.selection_length;
  if (selected > 0) return static_cast<std::size_t>(selected);
  return CharactersBeforeCaret(field);
}

}  // namespace

std::string CaretCrossing::Crossed(const HTMLElement& field) {
  if (!field.caret.known) {
    const TextChange change = Between(value_, field);
    Follow(field);
    return change.added;
  }
  const std::size_t position = PositionIn(field);
  const std::size_t from = std::min(position, position_);
  const std::size_t to = std::max(position, position_);
  Follow(field);
  return text::mid(field.value, from + 1, to - from);
}

std::string CaretCrossing::Done(const HTMLElement& field) {
  if (field.caret.edit == ElementCaret::Edit::None || field.value == value_) return Crossed(field);
  const TextChange change = Between(value_, field);
  Follow(field);
  return field.caret.edit == ElementCaret::Edit::Removed ? change.removed : change.added;
}

void CaretCrossing::Follow(const HTMLElement& field) {
  Hold(field);
  if (field.caret.known) position_ = PositionIn(field);
}

}  // namespace corvane
