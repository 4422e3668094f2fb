#pragma once

#include "app/MainMenu.h"
#include "browser/ctlWebBrowser.h"

namespace corvane {

/// While it is on, each key of the window says what it would do where the user is, and
/// does nothing.
class KeyHelp {
 public:
  /// All must outlive this object.
  KeyHelp(ctlWebBrowser& pane, MainMenu& menu, const Manner& manner)
      : pane_(pane), menu_(menu), manner_(manner) {}

  bool IsOn() const { return on_ && manner_.today; }
  /// Switches it on or off and says so; false, and nothing done, in the established manner.
  bool Switch();
  /// Says what the key would do.
  void Explain(const KeyEvent& key) const;

 private:
  std::string WhatDoes(const KeyEvent& key) const;
  std::string MenuOf(int code) const;

  ctlWebBrowser& pane_;
  MainMenu& menu_;
  const Manner& manner_;
  bool on_ = false;
};

}  // namespace corvane
