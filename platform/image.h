#pragma once

#include "platform/control.h"

namespace corvane {

/// A picture beside texts. It only decorates: it never has the focus, and says
/// nothing that the texts do not say.
class Image : public Control {
 public:
  enum class Picture {
    Program,  ///< the program's own icon
    Message,  ///< the desktop's sign for a message
  };

  virtual void SetPicture(Picture picture) = 0;
};

}  // namespace corvane
