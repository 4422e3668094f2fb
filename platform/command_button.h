#pragma once

#include <string>

#include "platform/control.h"

namespace corvane {

/// A push button. Its caption marks the access key with "&".
class CommandButton : public Control {
 public:
  virtual std::string Caption() const = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  /// Shows picture number `image` (ButtonImage) beside the caption.
  virtual void SetPicture(int image) = 0;

  Event<> Click;
};

}  // namespace corvane
