#include "access/CaretCrossing.h"

#include <algorithm>

#include "access/TextChange.h"
#include "base/text.h"

namespace corvane {
namespace {

std::size_t Count(int characters) { return static_cast<std::size_t>(std::max(characters, 0)); }

/// The characters before the caret; with a selection the number of those selected.
std::size_t PositionIn(const HTMLElement& field) {
  if (field.caret.selection_length > 0) return Count(field.caret.selection_length);
  const std::size_t length = text::length(field.value);
  return length - std::min(length, Count(field.caret.text_after));
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
