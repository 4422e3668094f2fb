#pragma once

#include <cstdint>
#include <string>

#include "base/event.h"

namespace corvane {

/// Identifies a window or control inside this process; 0 is none.
using WindowHandle = std::uint64_t;

/// Modifier bits of KeyEvent::Shift.
enum ShiftBits : int { kShiftMask = 1, kCtrlMask = 2, kAltMask = 4 };

/// Key codes that the product itself compares with. Codes are the original
/// platform's virtual-key codes for every key; letters and digits are their
/// capital characters.
enum KeyCodes : int {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyReturn = 13,
  kKeyShift = 16,
  kKeyControl = 17,
  kKeyAlt = 18,
  kKeyEscape = 27,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyDelete = 46,
  kKeyF1 = 112,
  kKeyF3 = 114,
  kKeyF4 = 115,
  kKeyF5 = 116,
  kKeyF6 = 117,
  kKeyF7 = 118,
  kKeyF8 = 119,
  kKeyF9 = 120,
  kKeyF12 = 123,
};

/// Whether a key only changes what others do.
constexpr bool IsModifier(int key_code) { return key_code >= kKeyShift && key_code <= kKeyAlt; }

/// A key going down or up. A handler that sets KeyCode to 0 keeps the key from
/// the control.
struct KeyEvent {
  int KeyCode = 0;
  int Shift = 0;  ///< ShiftBits
};

/// What every visible control offers. Lengths are in twips (1/1440 inch).
/// Destroying a control takes it off the screen.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  virtual WindowHandle hwnd() const = 0;
  virtual void SetFocus() = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual float Width() const = 0;
  virtual void SetWidth(float twips) = 0;
  virtual float Height() const = 0;
  virtual void SetHeight(float twips) = 0;
  /// The name by which assistive technologies announce the control.
  virtual void SetAccessibleName(const std::string& name) = 0;

  Event<> GotFocus;  ///< also after a menu that was left with nothing chosen
  Event<KeyEvent&> KeyDown;
  /// A key is released that was pressed in this control, was left to it by whoever
  /// heard of it going down, and is no modifier.
  Event<KeyEvent&> KeyUp;
  /// A typed character's code (Enter is 13, Tab 9); setting it to 0 swallows it.
  Event<int&> KeyPress;
};

}  // namespace corvane
