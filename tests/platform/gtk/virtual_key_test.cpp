#include "platform/linux/gtk/virtual_key.h"

#include <gdk/gdkkeysyms.h>
#include <gtest/gtest.h>

#include "platform/control.h"

namespace corvane::desktop {
namespace {

// A key of a German keyboard and of a French and a Russian one.
const std::vector<KeyMeaning> kUmlaut = {{0, 0, GDK_KEY_udiaeresis}, {0, 1, GDK_KEY_Udiaeresis}};
const std::vector<KeyMeaning> kFrenchOne = {{0, 0, GDK_KEY_ampersand}, {0, 1, GDK_KEY_1}};
const std::vector<KeyMeaning> kLatinAndRussian = {
    {0, 0, GDK_KEY_f}, {0, 1, GDK_KEY_F}, {1, 0, GDK_KEY_Cyrillic_a}, {1, 1, GDK_KEY_Cyrillic_A}};

TEST(PlainCharacterTest, IsWhatTheKeyTypesWithoutModifiersInItsLayout) {
  EXPECT_EQ(PlainCharacter(GDK_KEY_Udiaeresis, 0, kUmlaut), U'\u00FC');
  EXPECT_EQ(PlainCharacter(GDK_KEY_1, 0, kFrenchOne), U'&');
  EXPECT_EQ(PlainCharacter(GDK_KEY_Cyrillic_A, 1, kLatinAndRussian), U'\u0430');
  EXPECT_EQ(PlainCharacter(GDK_KEY_F, 0, kLatinAndRussian), U'f');
  EXPECT_EQ(PlainCharacter(GDK_KEY_less, 0, {{0, 0, ','}, {0, 1, '<'}}), U',');
}

TEST(PlainCharacterTest, DeadKeysHaveTheirAccents) {
  EXPECT_EQ(PlainCharacter(GDK_KEY_dead_circumflex, 0, {{0, 0, GDK_KEY_dead_circumflex}}), U'^');
  EXPECT_EQ(PlainCharacter(GDK_KEY_dead_acute, 0, {{0, 0, GDK_KEY_dead_acute}}), U'\u00B4');
}

TEST(PlainCharacterTest, OfTheKeypadIsWhatItTypes) {
  EXPECT_EQ(PlainCharacter(GDK_KEY_KP_7, 0, {{0, 0, GDK_KEY_KP_Home}, {0, 1, GDK_KEY_KP_7}}), U'7');
  EXPECT_EQ(PlainCharacter(GDK_KEY_KP_Separator, 0, {}), U',');
  EXPECT_EQ(PlainCharacter(GDK_KEY_KP_Decimal, 0, {}), U'.');
}

TEST(PlainCharacterTest, KeysThatTypeNothingToBeSeenHaveNone) {
  for (const guint keyval : {GDK_KEY_Return, GDK_KEY_Escape, GDK_KEY_Tab, GDK_KEY_space, GDK_KEY_F5,
                             GDK_KEY_Shift_L, GDK_KEY_Super_R, GDK_KEY_Menu}) {
    EXPECT_EQ(PlainCharacter(keyval, 0, {{0, 0, keyval}}), U'\0') << keyval;
  }
}

TEST(VirtualKeyTest, KeysWithoutALetterHaveFixedCodes) {
  const auto code = [](guint keyval) { return VirtualKey(keyval, 0, 0, {}); };
  EXPECT_EQ(code(GDK_KEY_BackSpace), 8);
  EXPECT_EQ(code(GDK_KEY_Tab), 9);
  EXPECT_EQ(code(GDK_KEY_ISO_Left_Tab), 9);
  EXPECT_EQ(code(GDK_KEY_Return), 13);
  EXPECT_EQ(code(GDK_KEY_KP_Enter), 13);
  EXPECT_EQ(code(GDK_KEY_Shift_R), 16);
  EXPECT_EQ(code(GDK_KEY_Control_L), 17);
  EXPECT_EQ(code(GDK_KEY_Alt_L), 18);
  EXPECT_EQ(code(GDK_KEY_Pause), 19);
  EXPECT_EQ(code(GDK_KEY_Caps_Lock), 20);
  EXPECT_EQ(code(GDK_KEY_Escape), 27);
  EXPECT_EQ(code(GDK_KEY_space), 32);
  EXPECT_EQ(code(GDK_KEY_Page_Up), 33);
  EXPECT_EQ(code(GDK_KEY_KP_Page_Down), 34);
  EXPECT_EQ(code(GDK_KEY_End), 35);
  EXPECT_EQ(code(GDK_KEY_Home), 36);
  EXPECT_EQ(code(GDK_KEY_Left), 37);
  EXPECT_EQ(code(GDK_KEY_Up), 38);
  EXPECT_EQ(code(GDK_KEY_Right), 39);
  EXPECT_EQ(code(GDK_KEY_Down), 40);
  EXPECT_EQ(code(GDK_KEY_Print), 44);
  EXPECT_EQ(code(GDK_KEY_Insert), 45);
  EXPECT_EQ(code(GDK_KEY_Delete), 46);
  EXPECT_EQ(code(GDK_KEY_Super_L), 91);
  EXPECT_EQ(code(GDK_KEY_Super_R), 92);
  EXPECT_EQ(code(GDK_KEY_Menu), 93);
  EXPECT_EQ(code(GDK_KEY_KP_7), 103);
  EXPECT_EQ(code(GDK_KEY_KP_Add), 107);
  EXPECT_EQ(code(GDK_KEY_F1), 112);
  EXPECT_EQ(code(GDK_KEY_F12), 123);
  EXPECT_EQ(code(GDK_KEY_F13), 124);
  EXPECT_EQ(code(GDK_KEY_Num_Lock), 144);
  EXPECT_EQ(code(GDK_KEY_Scroll_Lock), 145);
}

TEST(VirtualKeyTest, LettersAndDigitsAreTheirCapitalCharacters) {
  const std::vector<KeyMeaning> a = {{0, 0, 'a'}, {0, 1, 'A'}};
  EXPECT_EQ(VirtualKey('a', 38, 0, a), 'A');
  EXPECT_EQ(VirtualKey('A', 38, 0, a), 'A');
  const std::vector<KeyMeaning> one = {{0, 0, '1'}, {0, 1, '!'}};
  EXPECT_EQ(VirtualKey('!', 10, 0, one), '1');
}

TEST(VirtualKeyTest, AFrenchKeyboardHasItsOwnLettersAndShiftedDigits) {
  EXPECT_EQ(VirtualKey('a', 24, 0, {{0, 0, 'a'}, {0, 1, 'A'}}), 'A') << "where Q is elsewhere";
  const std::vector<KeyMeaning> one = {{0, 0, '&'}, {0, 1, '1'}};
  EXPECT_EQ(VirtualKey('&', 10, 0, one), '1');
  EXPECT_EQ(VirtualKey('1', 10, 0, one), '1');
  EXPECT_EQ(VirtualKey('m', 47, 0, {{0, 0, 'm'}, {0, 1, 'M'}}), 'M');
}

TEST(VirtualKeyTest, ACyrillicKeyIsNamedByTheLatinGroupOrItsPlace) {
  const guint ef = GDK_KEY_Cyrillic_ef;
  EXPECT_EQ(VirtualKey(ef, 38, 1, {{0, 0, 'a'}, {0, 1, 'A'}, {1, 0, ef}}), 'A');
  EXPECT_EQ(VirtualKey(ef, 38, 0, {{0, 0, ef}}), 'A');
  EXPECT_EQ(VirtualKey(GDK_KEY_Cyrillic_zhe, 47, 0, {{0, 0, GDK_KEY_Cyrillic_zhe}}), 186);
}

TEST(VirtualKeyTest, PunctuationHasTheCodesOfItsKeys) {
  const auto code = [](guint plain, guint shifted, guint hardware) {
    const std::vector<KeyMeaning> meanings = {{0, 0, plain}, {0, 1, shifted}};
    EXPECT_EQ(VirtualKey(plain, hardware, 0, meanings), VirtualKey(shifted, hardware, 0, meanings));
    return VirtualKey(plain, hardware, 0, meanings);
  };
  EXPECT_EQ(code(';', ':', 47), 186);
  EXPECT_EQ(code('=', '+', 21), 187);
  EXPECT_EQ(code(',', '<', 59), 188);
  EXPECT_EQ(code('-', '_', 20), 189);
  EXPECT_EQ(code('.', '>', 60), 190);
  EXPECT_EQ(code('/', '?', 61), 191);
  EXPECT_EQ(code('`', '~', 49), 192);
  EXPECT_EQ(code('[', '{', 34), 219);
  EXPECT_EQ(code('\\', '|', 51), 220);
  EXPECT_EQ(code(']', '}', 35), 221);
  EXPECT_EQ(code('\'', '"', 48), 222);
}

TEST(VirtualKeyTest, AnUmlautIsNamedByItsPlace) {
  EXPECT_EQ(VirtualKey(GDK_KEY_odiaeresis, 47, 0, {{0, 0, GDK_KEY_odiaeresis}}), 186);
  EXPECT_EQ(VirtualKey(GDK_KEY_less, 94, 0, {{0, 0, GDK_KEY_guillemotleft}}), 226);
}

TEST(VirtualKeyTest, AKeyWithoutAHardwareCodeIsNamedByWhatItTypes) {
  EXPECT_EQ(VirtualKey('q', 0, 0, {}), 'Q');
  EXPECT_EQ(VirtualKey('7', 0, 0, {}), '7');
  EXPECT_EQ(VirtualKey('?', 0, 0, {}), 191);
  EXPECT_EQ(VirtualKey(GDK_KEY_VoidSymbol, 0, 0, {}), 0);
}

TEST(VirtualKeyTest, ADeadKeyIsNamedByItsPlace) {
  EXPECT_EQ(VirtualKey(GDK_KEY_dead_acute, 21, 0, {{0, 0, GDK_KEY_dead_acute}}), 187);
  EXPECT_EQ(VirtualKey(GDK_KEY_dead_circumflex, 34, 0, {{0, 0, GDK_KEY_dead_circumflex}}), 219);
}

TEST(VirtualKeyTest, KeysOfMediaAndEastAsianKeyboardsHaveTheirCodes) {
  const auto code = [](guint keyval) { return VirtualKey(keyval, 0, 0, {}); };
  EXPECT_EQ(code(GDK_KEY_AudioNext), 176);
  EXPECT_EQ(code(GDK_KEY_AudioPlay), 179);
  EXPECT_EQ(code(GDK_KEY_Mail), 180);
  EXPECT_EQ(code(GDK_KEY_Calculator), 183);
  EXPECT_EQ(code(GDK_KEY_Hangul), 21);
  EXPECT_EQ(code(GDK_KEY_Kanji), 25);
  EXPECT_EQ(code(GDK_KEY_Henkan), 28);
  EXPECT_EQ(code(GDK_KEY_Muhenkan), 29);
}

TEST(VirtualKeyTest, ShiftBits) {
  EXPECT_EQ(ShiftState(0), 0);
  EXPECT_EQ(ShiftState(GDK_SHIFT_MASK | GDK_LOCK_MASK), kShiftMask);
  EXPECT_EQ(ShiftState(GDK_CONTROL_MASK | GDK_MOD1_MASK | GDK_MOD2_MASK), kCtrlMask | kAltMask);
}

TEST(VirtualKeyTest, CharactersOfKeys) {
  const auto typed = [](guint keyval, guint state = 0) {
    GdkEventKey event{};
    event.keyval = keyval;
    event.state = state;
    return CharacterCode(event);
  };
  EXPECT_EQ(typed(GDK_KEY_Return), 13);
  EXPECT_EQ(typed(GDK_KEY_KP_Enter), 13);
  EXPECT_EQ(typed(GDK_KEY_Tab), 9);
  EXPECT_EQ(typed(GDK_KEY_ISO_Left_Tab, GDK_SHIFT_MASK), 0);
  EXPECT_EQ(typed(GDK_KEY_Escape), 27);
  EXPECT_EQ(typed(GDK_KEY_BackSpace), 8);
  EXPECT_EQ(typed('a'), 'a');
  EXPECT_EQ(typed('A', GDK_SHIFT_MASK), 'A');
  EXPECT_EQ(typed(GDK_KEY_eacute), 0xE9);
  EXPECT_EQ(typed(GDK_KEY_KP_5), '5');
  EXPECT_EQ(typed('c', GDK_CONTROL_MASK), 3);
  EXPECT_EQ(typed(GDK_KEY_Delete), 0);
  EXPECT_EQ(typed(GDK_KEY_Left), 0);
  EXPECT_EQ(typed(GDK_KEY_Shift_L), 0);
  EXPECT_EQ(typed('f', GDK_MOD1_MASK), 0);
}

TEST(VirtualKeyTest, CodesLeadBackToKeys) {
  EXPECT_EQ(KeyvalOf(40), static_cast<guint>(GDK_KEY_Down));
  EXPECT_EQ(KeyvalOf('A'), static_cast<guint>('a'));
  EXPECT_EQ(KeyvalOf(116), static_cast<guint>(GDK_KEY_F5));
  EXPECT_EQ(KeyvalOf(999), 0U);
}

}  // namespace
}  // namespace corvane::desktop
