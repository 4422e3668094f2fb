#pragma once

#include <cstddef>
#include <string>

#include "platform/html_document.h"

namespace corvane {

/// How one text became another.
struct TextChange {
  std::string removed;
  std::string added;
};

/// How many characters of a field's text stand in front of its caret, which is the end
/// of what is selected.
std::size_t CharactersBeforeCaret(const HTMLElement& field);

/// How the text that a field held became what it holds, by what both begin and end
/// with in common. Where that leaves a choice, as among equal letters, the end begins
/// behind the caret.
TextChange Between(const std::string& before, const HTMLElement& field);

}  // namespace corvane
