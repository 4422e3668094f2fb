#include "platform/linux/gtk/virtual_key.h"

#include <gdk/gdkkeysyms.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/control.h"

namespace corvane::desktop {
namespace {

struct Pair {
  guint keyval;
  int code;
};

// Keys whose code does not depend on the layout. The first pair of a code is
// the one that KeyvalOf answers.
constexpr auto kFixed = std::to_array<Pair>({
    {GDK_KEY_BackSpace, 8},
    {GDK_KEY_Tab, 9},
    {GDK_KEY_ISO_Left_Tab, 9},
    {GDK_KEY_KP_Tab, 9},
    {GDK_KEY_Clear, 12},
    {GDK_KEY_KP_Begin, 12},
    {GDK_KEY_Return, 13},
    {GDK_KEY_KP_Enter, 13},
    {GDK_KEY_ISO_Enter, 13},
    {GDK_KEY_Shift_L, 16},
    {GDK_KEY_Shift_R, 16},
    {GDK_KEY_Control_L, 17},
    {GDK_KEY_Control_R, 17},
    {GDK_KEY_Alt_L, 18},
    {GDK_KEY_Alt_R, 18},
    {GDK_KEY_Meta_L, 18},
    {GDK_KEY_Meta_R, 18},
    {GDK_KEY_ISO_Level3_Shift, 18},
    {GDK_KEY_Mode_switch, 18},
    {GDK_KEY_Pause, 19},
    {GDK_KEY_Break, 19},
    {GDK_KEY_Caps_Lock, 20},
    {GDK_KEY_Escape, 27},
    {GDK_KEY_space, 32},
    {GDK_KEY_KP_Space, 32},
    {GDK_KEY_Page_Up, 33},
    {GDK_KEY_KP_Page_Up, 33},
    {GDK_KEY_Page_Down, 34},
    {GDK_KEY_KP_Page_Down, 34},
    {GDK_KEY_End, 35},
    {GDK_KEY_KP_End, 35},
    {GDK_KEY_Home, 36},
    {GDK_KEY_KP_Home, 36},
    {GDK_KEY_Left, 37},
    {GDK_KEY_KP_Left, 37},
    {GDK_KEY_Up, 38},
    {GDK_KEY_KP_Up, 38},
    {GDK_KEY_Right, 39},
    {GDK_KEY_KP_Right, 39},
    {GDK_KEY_Down, 40},
    {GDK_KEY_KP_Down, 40},
    {GDK_KEY_Select, 41},
    {GDK_KEY_Execute, 43},
    {GDK_KEY_Print, 44},
    {GDK_KEY_Sys_Req, 44},
    {GDK_KEY_Insert, 45},
    {GDK_KEY_KP_Insert, 45},
    {GDK_KEY_Delete, 46},
    {GDK_KEY_KP_Delete, 46},
    {GDK_KEY_Help, 47},
    {GDK_KEY_Super_L, 91},
    {GDK_KEY_Super_R, 92},
    {GDK_KEY_Menu, 93},
    {GDK_KEY_Sleep, 95},
    {GDK_KEY_KP_Multiply, 106},
    {GDK_KEY_KP_Add, 107},
    {GDK_KEY_KP_Separator, 108},
    {GDK_KEY_KP_Subtract, 109},
    {GDK_KEY_KP_Decimal, 110},
    {GDK_KEY_KP_Divide, 111},
    {GDK_KEY_Num_Lock, 144},
    {GDK_KEY_Scroll_Lock, 145},
    {GDK_KEY_Back, 166},
    {GDK_KEY_Forward, 167},
    {GDK_KEY_Refresh, 168},
    {GDK_KEY_Reload, 168},
    {GDK_KEY_Stop, 169},
    {GDK_KEY_Search, 170},
    {GDK_KEY_Favorites, 171},
    {GDK_KEY_HomePage, 172},
    {GDK_KEY_AudioMute, 173},
    {GDK_KEY_AudioLowerVolume, 174},
    {GDK_KEY_AudioRaiseVolume, 175},
    {GDK_KEY_AudioNext, 176},
    {GDK_KEY_AudioPrev, 177},
    {GDK_KEY_AudioStop, 178},
    {GDK_KEY_AudioPlay, 179},
    {GDK_KEY_AudioPause, 179},
    {GDK_KEY_Mail, 180},
    {GDK_KEY_AudioMedia, 181},
    {GDK_KEY_MyComputer, 182},
    {GDK_KEY_Explorer, 182},
    {GDK_KEY_Calculator, 183},
    {GDK_KEY_Kana_Lock, 21},
    {GDK_KEY_Hiragana_Katakana, 21},
    {GDK_KEY_Hangul, 21},
    {GDK_KEY_Kanji, 25},
    {GDK_KEY_Zenkaku_Hankaku, 25},
    {GDK_KEY_Hangul_Hanja, 25},
    {GDK_KEY_Henkan, 28},
    {GDK_KEY_Muhenkan, 29},
});

// Punctuation by the character that the key types, plain or shifted.
constexpr auto kPunctuation = std::to_array<Pair>({
    {';', 186}, {':', 186}, {'=', 187},  {'+', 187}, {',', 188},  {'<', 188},
    {'-', 189}, {'_', 189}, {'.', 190},  {'>', 190}, {'/', 191},  {'?', 191},
    {'`', 192}, {'~', 192}, {'[', 219},  {'{', 219}, {'\\', 220}, {'|', 220},
    {']', 221}, {'}', 221}, {'\'', 222}, {'"', 222},
});

// Dead keys and their accents.
constexpr auto kDead = std::to_array<Pair>({
    {GDK_KEY_dead_grave, '`'},
    {GDK_KEY_dead_acute, 0xB4},
    {GDK_KEY_dead_circumflex, '^'},
    {GDK_KEY_dead_tilde, '~'},
    {GDK_KEY_dead_diaeresis, 0xA8},
    {GDK_KEY_dead_cedilla, 0xB8},
    {GDK_KEY_dead_caron, 0x2C7},
    {GDK_KEY_dead_breve, 0x2D8},
    {GDK_KEY_dead_abovedot, 0x2D9},
    {GDK_KEY_dead_abovering, 0x2DA},
    {GDK_KEY_dead_ogonek, 0x2DB},
    {GDK_KEY_dead_doubleacute, 0x2DD},
});

// The code of a hardware key on a keyboard of the United States: what a key is
// called where its layout has no Latin character.
int CodeByPlace(guint hardware) {
  struct Row {
    guint first;
    const char* keys;
  };
  static constexpr std::array<Row, 4> kRows = {
      {{10, "1234567890-="}, {24, "QWERTYUIOP[]"}, {38, "ASDFGHJKL;'`"}, {51, "\\ZXCVBNM,./"}}};
  if (hardware == 94) return 226;  // the further key of European keyboards
  for (const auto& row : kRows) {
    const std::string_view keys(row.keys);
    if (hardware < row.first || hardware >= row.first + keys.size()) continue;
    const auto key = static_cast<guint>(keys[hardware - row.first]);
    const auto* found = std::find_if(kPunctuation.begin(), kPunctuation.end(),
                                     [key](const Pair& pair) { return pair.keyval == key; });
    return found == kPunctuation.end() ? static_cast<int>(key) : found->code;
  }
  return 0;
}

int Letter(guint keyval) {
  if (keyval >= 'a' && keyval <= 'z') return static_cast<int>(keyval - 'a' + 'A');
  if (keyval >= 'A' && keyval <= 'Z') return static_cast<int>(keyval);
  return 0;
}

bool IsDigit(guint keyval) { return keyval >= '0' && keyval <= '9'; }

int Punctuation(guint keyval) {
  for (const auto& pair : kPunctuation) {
    if (pair.keyval == keyval) return pair.code;
  }
  return 0;
}

int FixedCode(guint keyval) {
  if (keyval >= GDK_KEY_F1 && keyval <= GDK_KEY_F24)
    return static_cast<int>(keyval - GDK_KEY_F1) + 112;
  if (keyval >= GDK_KEY_KP_0 && keyval <= GDK_KEY_KP_9)
    return static_cast<int>(keyval - GDK_KEY_KP_0) + 96;
  for (const auto& pair : kFixed) {
    if (pair.keyval == keyval) return pair.code;
  }
  return 0;
}

// A layout's plain meaning of the key, 0 when it has none.
guint Plain(const std::vector<KeyMeaning>& meanings, int group) {
  for (const auto& meaning : meanings) {
    if (meaning.group == group && meaning.level == 0) return meaning.keyval;
  }
  return 0;
}

bool IsLatin(guint keyval) {
  const gunichar character = gdk_keyval_to_unicode(keyval);
  return character == 0 || !g_unichar_isalpha(character) ||
         g_unichar_get_script(character) == G_UNICODE_SCRIPT_LATIN;
}

}  // namespace

int VirtualKey(guint keyval, guint hardware, int group, const std::vector<KeyMeaning>& meanings) {
  if (const int fixed = FixedCode(keyval)) return fixed;

  guint plain = Plain(meanings, group);
  if (plain == 0) plain = Plain(meanings, 0);
  if (plain == 0) plain = keyval;

  // The digit row, also where digits need Shift.
  if (hardware >= 10 && hardware <= 19) {
    for (const auto& meaning : meanings) {
      if (meaning.level <= 1 && IsDigit(meaning.keyval)) return static_cast<int>(meaning.keyval);
    }
  }
  if (const int letter = Letter(plain)) return letter;
  if (IsDigit(plain)) return static_cast<int>(plain);
  if (!IsLatin(plain)) {
    for (const auto& meaning : meanings) {
      if (meaning.level != 0) continue;
      if (const int letter = Letter(meaning.keyval)) return letter;
    }
  } else if (const int punctuation = Punctuation(plain)) {
    return punctuation;
  }
  return CodeByPlace(hardware);
}

namespace {

std::vector<KeyMeaning> MeaningsOf(const GdkEventKey& event) {
  std::vector<KeyMeaning> meanings;
  auto* display = event.window ? gdk_window_get_display(event.window) : gdk_display_get_default();
  if (display && event.hardware_keycode != 0) {
    GdkKeymapKey* keys = nullptr;
    guint* keyvals = nullptr;
    gint count = 0;
    if (gdk_keymap_get_entries_for_keycode(gdk_keymap_get_for_display(display),
                                           event.hardware_keycode, &keys, &keyvals, &count)) {
      for (gint i = 0; i < count; ++i)
        meanings.push_back({keys[i].group, keys[i].level, keyvals[i]});
    }
    g_free(keys);
    g_free(keyvals);
  }
  return meanings;
}

}  // namespace

int VirtualKey(const GdkEventKey& event) {
  return VirtualKey(event.keyval, event.hardware_keycode, event.group, MeaningsOf(event));
}

char32_t PlainCharacter(guint keyval, int group, const std::vector<KeyMeaning>& meanings) {
  guint plain = keyval;  // of the keypad's keys, which Num Lock decides about, too
  if (FixedCode(keyval) == 0) {
    plain = Plain(meanings, group);
    if (plain == 0) plain = Plain(meanings, 0);
    if (plain == 0) plain = keyval;
  }
  for (const auto& dead : kDead) {
    if (dead.keyval == plain) return static_cast<char32_t>(dead.code);
  }
  const gunichar character = gdk_keyval_to_unicode(plain);
  return g_unichar_isgraph(character) ? character : 0;
}

PressedKey Pressed(const GdkEventKey& event) {
  const auto meanings = MeaningsOf(event);
  return {VirtualKey(event.keyval, event.hardware_keycode, event.group, meanings),
          PlainCharacter(event.keyval, event.group, meanings), ShiftState(event.state)};
}

int ShiftState(guint gdk_state) {
  return ((gdk_state & GDK_SHIFT_MASK) ? kShiftMask : 0) |
         ((gdk_state & GDK_CONTROL_MASK) ? kCtrlMask : 0) |
         ((gdk_state & GDK_MOD1_MASK) ? kAltMask : 0);
}

int CharacterCode(const GdkEventKey& event) {
  const int code = FixedCode(event.keyval);
  const bool control = (event.state & GDK_CONTROL_MASK) != 0;
  const bool alt = (event.state & GDK_MOD1_MASK) != 0;
  if (alt && !control) return 0;
  switch (code) {
    case kKeyReturn:
      return control ? 10 : 13;
    case kKeyTab:  // with Shift it types nothing, so that it goes back everywhere
      return (event.state & GDK_SHIFT_MASK) != 0 ? 0 : code;
    case kKeyEscape:
      return code;
    case 8:
      return control ? 127 : 8;
    case kKeyDelete:
      return 0;
    default:
      break;
  }
  if (control) {
    const int key = VirtualKey(event);
    return key >= 'A' && key <= 'Z' ? key - 'A' + 1 : 0;
  }
  return static_cast<int>(gdk_keyval_to_unicode(event.keyval));
}

guint KeyvalOf(int virtual_key) {
  if (virtual_key >= 112 && virtual_key <= 135)
    return static_cast<guint>(virtual_key - 112) + GDK_KEY_F1;
  if (virtual_key >= 96 && virtual_key <= 105)
    return static_cast<guint>(virtual_key - 96) + GDK_KEY_KP_0;
  for (const auto& pair : kFixed) {
    if (pair.code == virtual_key) return pair.keyval;
  }
  for (const auto& pair : kPunctuation) {
    if (pair.code == virtual_key) return pair.keyval;
  }
  if (virtual_key >= 'A' && virtual_key <= 'Z') return static_cast<guint>(virtual_key - 'A' + 'a');
  if (virtual_key >= '0' && virtual_key <= '9') return static_cast<guint>(virtual_key);
  return 0;
}

}  // namespace corvane::desktop
