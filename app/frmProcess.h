#pragma once

#include <memory>
#include <string>

#include "platform/desktop.h"

namespace corvane {

/// The hidden window whose caption marks the process as running.
class frmProcess {
 public:
  explicit frmProcess(Desktop& desktop) : form_(desktop.CreateForm("frmProcess")) {}
  void SetCaption(const std::string& caption) { form_->SetCaption(caption); }

 private:
  std::unique_ptr<Form> form_;
};

}  // namespace corvane
