#pragma once

#include <functional>
#include <memory>

#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "platform/questions.h"

namespace corvane::desktop {

/// Asks what pages want to know in the program's own dialogs.
class PageQuestions : public Questions {
 public:
  /// `dialogs` must outlive every question.
  explicit PageQuestions(SpokenDialogs& dialogs) : dialogs_(dialogs) {}

  std::shared_ptr<void> Ask(const DialogQuestion& question,
                            std::function<void(const DialogAnswer&)> done) override;

 private:
  SpokenDialogs& dialogs_;
};

}  // namespace corvane::desktop
