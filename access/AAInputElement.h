#pragma once

#include <string>

#include "access/AAElement.h"
#include "access/CaretCrossing.h"

namespace corvane {

/// Announces an input field: what it is and holds on focus; in text and password
/// fields the characters that the caret crosses. Passwords are spoken as typed.
class AAInputElement : public AAElement {
 public:
  /// "checked" or "unchecked"; of a radio button "selected" or "unselected".
  static std::string StateWord(const HTMLElement& input);

 protected:
  void Listen() override;

 private:
  void AAInput_onfocus();
  void AAInput_onkeyup();

  CaretCrossing caret_;
};

}  // namespace corvane
