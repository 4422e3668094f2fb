#pragma once

#include "access/AAElement.h"
#include "access/FieldEcho.h"

namespace corvane {

/// Announces a text area: what it is and holds on focus, then the characters
/// that the caret crosses.
class AATextAreaElement : public AAElement {
 protected:
  void Listen() override;

 private:
  void AATextArea_onfocus();
  void AATextArea_onkeyup();

  FieldEcho caret_;
};

}  // namespace corvane
