#pragma once

#include <gdk/gdk.h>

#include <vector>

#include "platform/hooks.h"

namespace corvane::desktop {

/// One meaning of a key in the keyboard's layouts: `group` numbers the layout,
/// `level` the shift state (0 none, 1 Shift).
struct KeyMeaning {
  int group = 0;
  int level = 0;
  guint keyval = 0;
};

/// The virtual-key code of a key: letters and digits are their capital
/// characters whatever the layout or shift state, the other keys have fixed
/// numbers; 0 for a key that has none. `meanings` are all that the layouts give
/// the key with that `hardware` code.
int VirtualKey(guint keyval, guint hardware, int group, const std::vector<KeyMeaning>& meanings);

/// The same for an event, with the meanings from the display's keyboard.
int VirtualKey(const GdkEventKey& event);

/// What the key types without a modifier in the layout in force, as
/// PressedKey::character has it.
char32_t PlainCharacter(guint keyval, int group, const std::vector<KeyMeaning>& meanings);

/// An event as a hook tells it.
PressedKey Pressed(const GdkEventKey& event);

/// ShiftBits of an event. The bit of a modifier key that goes down or up itself
/// is as it was before.
int ShiftState(guint gdk_state);

/// The character that a key types, as a number: Enter 13, Tab 9, Escape 27,
/// Backspace 8, Ctrl with a letter 1 to 26; 0 for a key that types nothing.
int CharacterCode(const GdkEventKey& event);

/// The toolkit's key for a virtual-key code, for a handler that turns one key
/// into another; 0 when there is none.
guint KeyvalOf(int virtual_key);

}  // namespace corvane::desktop
