#include "access/TextChange.h"

#include <algorithm>

#include "base/text.h"

namespace corvane {

std::size_t CharactersBeforeCaret(const HTMLElement& field) {
  const std::size_t length = text::length(field.value);
  return length - std::min(length, static_cast<std::size_t>(std::max(field.caret.text_after, 0)));
}

TextChange Between(const std::string& before, const HTMLElement& field) {
  const std::string& after = field.value;
  const std::size_t shorter = std::min(before.size(), after.size());
  std::size_t end = 0;
  std::size_t most = shorter;
  if (field.caret.known && field.caret.selection_length <= 0) {
    most = std::min(most, after.size() - text::offset_of(after, CharactersBeforeCaret(field)));
  }
  const auto rest = [](const std::string& text, std::size_t at) { return text.size() - at; };
  while (end < most && before[rest(before, end + 1)] == after[rest(after, end + 1)]) ++end;
  while (end > 0 && text::continues(after[rest(after, end)])) --end;
  std::size_t begin = 0;
  while (begin < shorter - end && before[begin] == after[begin]) ++begin;
  const auto whole = [&](const std::string& text) {
    return begin >= rest(text, end) || !text::continues(text[begin]);
  };
  while (begin > 0 && !(whole(before) && whole(after))) --begin;
  return {before.substr(begin, before.size() - begin - end),
          after.substr(begin, after.size() - begin - end)};
}

}  // namespace corvane
