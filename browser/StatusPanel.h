#pragma once

#include <string>

#include "platform/status_bar.h"

namespace corvane {

/// The first panel of the host's status bar, which may be missing.
class StatusPanel {
 public:
  /// Takes the host's bar; null when there is none (any more).
  void SetStatusBar(StatusBar* bar) {
    bar_ = bar;
    missing_ = bar == nullptr;
  }
  /// Forgets the bar without marking it missing: the pane is shutting down.
  void Release() { bar_ = nullptr; }

  void Show(const std::string& text) {
    if (!missing_ && bar_ != nullptr) bar_->SetPanelText(1, text);
  }

 private:
  StatusBar* bar_ = nullptr;
  bool missing_ = true;
};

}  // namespace corvane
