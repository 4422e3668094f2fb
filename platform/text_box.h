#pragma once

#include <string>

#include "platform/control.h"

namespace corvane {

/// A read-only field of plain text, one line or several.
class TextBox : public Control {
 public:
  virtual std::string Text() const = 0;
  virtual void SetText(const std::string& text) = 0;
};

}  // namespace corvane
