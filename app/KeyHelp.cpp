#include "app/KeyHelp.h"

#include <cctype>
#include <string>

#include "app/KeyCommands.h"
#include "base/text.h"
#include "speech/KeyWords.h"

namespace corvane {
namespace {

std::string NameOf(const KeyEvent& key) {
  std::string name;
  if (!IsModifier(key.KeyCode)) {
    if ((key.Shift & kCtrlMask) != 0) name += "Control ";
    if ((key.Shift & kAltMask) != 0) name += "Alt ";
    if ((key.Shift & kShiftMask) != 0) name += "Shift ";
  }
  return name + KeyWords({key.KeyCode, 0});
}

/// The key that opens a menu or chooses an item; 0 for none.
int AccessKey(const std::string& caption) {
  const std::size_t mark = caption.find('&');
  if (mark == std::string::npos || mark + 1 == caption.size()) return 0;
  return std::toupper(static_cast<unsigned char>(caption[mark + 1]));
}

}  // namespace

bool KeyHelp::Switch() {
  if (!manner_.today) return false;
  on_ = !IsOn();
  pane_.Say(on_ ? "Key help on. Each key says what it does. Escape ends it." : "Key help off");
  return true;
}

void KeyHelp::Explain(const KeyEvent& key) const {
  const std::string name = NameOf(key);
  if (!IsModifier(key.KeyCode)) return pane_.Say(name + ", " + WhatDoes(key));
  // Another that is already down makes no difference to it.
  pane_.Say(key.KeyCode == kKeyControl ? name + ", " + WhatDoes({kKeyControl, 0}) : name);
}

// What is the area's own comes first, as when the key is pressed: a command that has the
// same key leaves it alone there.
std::string KeyHelp::WhatDoes(const KeyEvent& key) const {
  if (const auto in_pane = pane_.WhatKeyDoes(key)) return *in_pane;
  for (const KeyCommand& command : AllKeyCommands()) {
    if (command.KeyCode == key.KeyCode && command.Shift == key.Shift) return command.does;
  }
  if (key.Shift == kAltMask) {
    if (const std::string menu = MenuOf(key.KeyCode); !menu.empty()) return menu;
  }
  return pane_.IsInPage() ? "goes to the page" : "does nothing here";
}

std::string KeyHelp::MenuOf(int code) const {
  for (int i = 0; i < menu_.mnuFile.Count(); ++i) {
    const std::string caption = menu_.mnuFile(i).Caption();
    if (AccessKey(caption) == code) return "opens the menu " + text::replace_all(caption, "&", "");
  }
  return {};
}

}  // namespace corvane
