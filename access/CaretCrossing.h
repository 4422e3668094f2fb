#pragma once

#include <string>

#include "platform/html_document.h"

namespace corvane {

/// Remembers where the caret of one field was announced last and tells what it
/// has crossed since. The place is not forgotten when the focus goes.
class CaretCrossing {
 public:
  /// The characters of the field's value between the last place and the present
  /// one; empty when the caret has not moved. With a selection the present place
  /// is the number of characters selected.
  std::string Crossed(const HTMLElement& field);

 private:
  std::size_t position_ = 0;  // characters before the caret when announced last
};

}  // namespace corvane
