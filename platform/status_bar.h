#pragma once

#include <string>

#include "platform/control.h"

namespace corvane {

/// The strip at a window's bottom with numbered panels (1-based).
class StatusBar : public Control {
 public:
  virtual std::string PanelText(int panel) const = 0;
  virtual void SetPanelText(int panel, const std::string& text) = 0;
};

}  // namespace corvane
