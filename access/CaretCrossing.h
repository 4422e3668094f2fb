#pragma once

#include <string>

#include "platform/html_document.h"

namespace corvane {

/// Remembers where the caret of one field was announced last and what the field held
/// then, and tells what has happened since. Neither is forgotten when the focus goes.
class CaretCrossing {
 public:
  /// The characters of the field's value between the last place and the present
  /// one; empty when the caret has not moved. With a selection the present place
  /// is the number of characters selected. Where the page does not tell the place,
  /// the characters that were added.
  std::string Crossed(const HTMLElement& field);
  /// What a key has done: the characters that it typed, those that it removed, else
  /// those that the caret has crossed.
  std::string Done(const HTMLElement& field);
  /// Takes over what the field holds, unheard.
  void Hold(const HTMLElement& field) { value_ = field.value; }
  /// Takes over also where the caret is.
  void Follow(const HTMLElement& field);

 private:
  std::size_t position_ = 0;  // characters before the caret when announced last
  std::string value_;
};

}  // namespace corvane
