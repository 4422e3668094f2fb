#pragma once

#include <span>

#include "app/KeyHelp.h"
#include "app/MenuCommands.h"
#include "browser/ctlWebBrowser.h"
#include "platform/form.h"

namespace corvane {

/// A key of the browser window and what it does. Keys of the menus and of the
/// pane's controls are not here.
struct KeyCommand {
  /// What the keys work on.
  struct Target {
    MenuCommands& commands;
    ctlWebBrowser& pane;
    KeyHelp& help;
    Form& form;
  };

  int KeyCode;
  int Shift;         ///< ShiftBits, exactly
  const char* keys;  ///< as the help text writes them
  const char* does;  ///< in a few words, as they follow the key's name
  void (*run)(const Target& target);
  /// The same for a key that is the command's only here and there; false, and nothing
  /// done, where it is not. One of the two is null.
  bool (*may_run)(const Target& target) = nullptr;
};

/// All keys of the browser window, wherever in it the focus is.
std::span<const KeyCommand> AllKeyCommands();

/// Carries out the window's keys before the control that has the focus sees them.
class KeyCommands {
 public:
  KeyCommands(Form& form, MenuCommands& commands, ctlWebBrowser& pane, KeyHelp& help);

 private:
  void Form_KeyDown(KeyEvent& key);
  void Explain(KeyEvent& key);

  KeyCommand::Target target_;
  Connections connections_;
};

}  // namespace corvane
