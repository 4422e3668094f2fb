#include "access/CaretCrossing.h"

#include <algorithm>

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

bool StartsCharacter(char unit) { return (static_cast<unsigned char>(unit) & 0xC0U) != 0x80U; }

struct Change {
  std::string removed;
  std::string added;
};

/// How one text became the other, by what they begin and end with in common. Where
/// that leaves a choice, as among equal letters, the end begins behind the caret.
Change Between(const std::string& before, const HTMLElement& field) {
  const std::string& after = field.value;
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t end = 0;
  std::size_t most = shorter;
  if (field.caret.known && field.caret.selection_length <= 0) {
    const std::size_t length = text::length(after);
    const std::size_t place = length - std::min(length, Count(field.caret.text_after));
    most = std::min(most, after.size() - text::offset_of(after, place));
  }
  const auto rest = [](const std::string& text, std::size_t at) { return text.size() - at; };
  while (end < most && before[rest(before, end + 1)] == after[rest(after, end + 1)]) ++end;
  while (end > 0 && !StartsCharacter(after[rest(after, end)])) --end;
  std::size_t begin = 0;
  while (begin < shorter - end && before[begin] == after[begin]) ++begin;
  const auto whole = [&](const std::string& text) {
    return begin >= rest(text, end) || StartsCharacter(text[begin]);
  };
  while (begin > 0 && !(whole(before) && whole(after))) --begin;
  return {before.substr(begin, before.size() - begin - end),
          after.substr(begin, after.size() - begin - end)};
}

}  // namespace

std::string CaretCrossing::Crossed(const HTMLElement& field) {
  if (!field.caret.known) {
    const Change change = Between(value_, field);
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
  const Change change = Between(value_, field);
  Follow(field);
  return field.caret.edit == ElementCaret::Edit::Removed ? change.removed : change.added;
}

void CaretCrossing::Follow(const HTMLElement& field) {
  Hold(field);
  if (field.caret.known) position_ = PositionIn(field);
}

}  // namespace corvane
