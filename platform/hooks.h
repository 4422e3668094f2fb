#pragma once

#include <string>

#include "base/event.h"
#include "platform/control.h"
#include "platform/windows.h"

namespace corvane {

/// State bits of a highlighted menu item.
enum MenuFlags : unsigned {
  kMenuDisabled = 0x0002,
  kMenuChecked = 0x0008,
  kMenuPopup = 0x0010,  ///< the item opens a submenu
  kMenuHilite = 0x0080,
  kMenuSystem = 0x2000,  ///< the window's own menu
};

/// A menu item of the program that has just been highlighted.
struct MenuSelect {
  int item = 0;        ///< the item's id; the place in its menu when it opens a submenu
  unsigned flags = 0;  ///< MenuFlags
  std::string text;    ///< its caption, with "&" before the access key
};

/// A hook into the events of this program's own windows, never another program's.
/// Every hook is off until it is switched on.
class Hook {
 public:
  virtual ~Hook() = default;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
};

/// A key that has gone down.
struct PressedKey {
  int code = 0;  ///< as KeyEvent has it; 0 for a key that has none
  /// What the key types in the layout in force without Shift or another modifier;
  /// a dead key has its accent. 0 for a key that types nothing to be seen.
  char32_t character = 0;
  int shift = 0;  ///< ShiftBits
};

/// Tells of every key that goes down in any window of the program, the page and
/// dialogs included, repeats too, before a control acts on it.
class KeyboardHook : public Hook {
 public:
  Event<const PressedKey&> KeyDown;
  /// Whether the key that is being told goes into a field whose text is hidden.
  virtual bool IntoPassword() const = 0;
};

/// Tells of every menu item of the program that is highlighted, with the keyboard
/// or the mouse, disabled ones too.
class MessageHook : public Hook {
 public:
  Event<const MenuSelect&> MenuSelected;
};

/// Tells of top-level windows of the program that become active, before they take
/// the first key.
class ActivationHook : public Hook {
 public:
  Event<WindowHandle> Activated;
};

}  // namespace corvane
