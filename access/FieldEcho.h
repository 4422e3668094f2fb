#pragma once

#include <string>

#include "access/CaretCrossing.h"
#include "access/FieldCaret.h"
#include "base/manner.h"
#include "platform/html_document.h"

namespace corvane {

/// What is heard of the keys in one field: the characters that the caret crosses or,
/// where the manner wants it, what it reaches.
class FieldEcho {
 public:
  /// The field has got the focus.
  void Enter(const HTMLElement& field);
  /// Takes over what the field holds and where its caret is, unheard.
  void Follow(const HTMLElement& field);
  /// What a key has done that was released in the field.
  std::string Heard(const HTMLElement& field, const Manner& manner);

 private:
  CaretCrossing crossing_;
  FieldCaret reached_;
};

/// The text of a field of several lines as it is heard on the way in: all of it or,
/// where the manner wants what the caret reaches, the line at the caret.
std::string TextOnEntry(const HTMLElement& area, const Manner& manner);

}  // namespace corvane
