#pragma once

#include <functional>
#include <memory>

#include "platform/linux/gtk/dialogs/dialog_question.h"

namespace corvane::desktop {

/// Shows questions to the user.
class Questions {
 public:
  virtual ~Questions() = default;
  /// Asks without waiting; `done` is called once, after this has returned.
  /// Letting go of what is returned takes the question back: it closes, and
  /// nothing is called.
  [[nodiscard]] virtual std::shared_ptr<void> Ask(
      const DialogQuestion& question, std::function<void(const DialogAnswer&)> done) = 0;
};

}  // namespace corvane::desktop
