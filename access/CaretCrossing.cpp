#include "access/CaretCrossing.h"

#include <algorithm>

#include "base/text.h"

namespace corvane {

std::string CaretCrossing::Crossed(const HTMLElement& field) {
  const std::size_t length = text::length(field.value);
  const auto count = [](int characters) {
    return static_cast<std::size_t>(std::max(characters, 0));
  };
  const std::size_t position = field.caret.selection_length > 0
                                   ? count(field.caret.selection_length)
                                   : length - std::min(length, count(field.caret.text_after));
  const std::size_t from = std::min(position, position_);
  const std::size_t to = std::max(position, position_);
  position_ = position;
  return text::mid(field.value, from + 1, to - from);
}

}  // namespace corvane
