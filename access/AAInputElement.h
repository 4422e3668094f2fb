#pragma once

#include <string>

#include "access/AAElement.h"
#include "access/FieldEcho.h"

namespace corvane {

/// Announces an input field: what it is and holds on focus; in text and password
/// fields the characters that the caret crosses; the parts of a date or time that the
/// user comes to and changes; each step of a slider or a number. Passwords are spoken as
/// typed, unless the manner hides them.
class AAInputElement : public AAElement {
 public:
  /// "checked" or "unchecked"; of a radio button "selected" or "unselected".
  static std::string StateWord(const HTMLElement& input);

 protected:
  void Listen() override;

 private:
  void AAInput_onfocus();
  void AAInput_onkeyup();
  void AAInput_onchange();
  std::string PartCrossed();

  FieldEcho caret_;
  bool stepped_ = false;  // the key that is down has stepped the value
  std::string part_;      // announced last
  std::string part_value_;
};

}  // namespace corvane
