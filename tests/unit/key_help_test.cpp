#include "app/KeyHelp.h"

#include "browser/AreaKeys.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct KeyHelpTest : testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.StartTalking();
    p.TextPane().SetFocus();
    Press(kKeyF1, kCtrlMask);
    p.Spoken();
    p.Browser().calls.clear();
  }
  /// True when the key was used up.
  bool Press(int code, int shift = 0) {
    KeyEvent key{code, shift};
    p.Inside().form->KeyDown.Raise(key);
    return key.KeyCode == 0;
  }
  std::string Explained(int code, int shift = 0) {
    p.Spoken();
    EXPECT_TRUE(Press(code, shift)) << "it would do something";
    const auto words = p.Spoken();
    EXPECT_EQ(words.size(), 1U);
    return words.empty() ? "" : words.front();
  }
};

TEST_F(KeyHelpTest, SaysWhatCommandsOfTheWindowDoAndDoesNothing) {
  EXPECT_EQ(Explained(kKeyF5), "F5, loads the page again");
  EXPECT_EQ(Explained('F', kCtrlMask), "Control F, finds words in the page");
  EXPECT_EQ(Explained('W', kCtrlMask), "Control W, closes the window");
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_EQ(p.process.Forms().size(), 1U);
}

TEST_F(KeyHelpTest, EveryCommandOfTheWindowIsExplained) {
  for (const KeyCommand& command : AllKeyCommands()) {
    if (command.KeyCode == kKeyF1) continue;                                       // ends it
    if (WhatKeyOfAreaDoes(kAreaText, {command.KeyCode, command.Shift})) continue;  // mostly
    EXPECT_THAT(Explained(command.KeyCode, command.Shift), testing::HasSubstr(command.does));
  }
}

TEST_F(KeyHelpTest, SaysWhatAKeyDoesWhereTheUserIs) {
  EXPECT_EQ(Explained(kKeyDown), "Down, reads the next line");
  EXPECT_EQ(Explained('H'), "H, next heading");
  EXPECT_EQ(Explained('3', kShiftMask), "Shift 3, previous heading level 3");
  EXPECT_EQ(Explained('Y'), "Y, is no quick key");
  p.Links().SetFocus();
  EXPECT_EQ(Explained('H'), "H, goes to the next entry that begins with it");
  EXPECT_EQ(Explained(kKeyReturn), "Enter, follows the link");
  p.Address().SetFocus();
  EXPECT_EQ(Explained('H'), "H, is written");
  EXPECT_EQ(Explained(kKeyF4), "F4, opens the list of earlier addresses");
  p.Browser().SetFocus();
  EXPECT_EQ(Explained('H'), "H, goes to the page");
  EXPECT_EQ(Explained('K', kCtrlMask), "Control K, goes to the page");
}

TEST_F(KeyHelpTest, WithoutQuickKeysLettersAreWrittenAndTablesAreText) {
  EXPECT_EQ(Explained(kKeyDown, kAltMask | kShiftMask),
            "Alt Shift Down, goes to the cell below in the table");
  Press(kKeyF1, kCtrlMask);
  Press(kKeyF4);
  Press(kKeyF1, kCtrlMask);
  EXPECT_EQ(Explained('H'), "H, is written");
  EXPECT_EQ(Explained(kKeyDown, kAltMask | kShiftMask), "Alt Shift Down, does nothing here");
}

TEST_F(KeyHelpTest, NamesTheMenusAndWhatDoesNothing) {
  EXPECT_EQ(Explained('F', kAltMask), "Alt F, opens the menu File");
  EXPECT_EQ(Explained('C', kAltMask), "Alt C, opens the menu Speech");
  EXPECT_EQ(Explained('K', kCtrlMask), "Control K, does nothing here");
  EXPECT_EQ(Explained(kKeyControl), "Control, silences what is being said");
  EXPECT_EQ(Explained(kKeyShift), "Shift");
}

TEST_F(KeyHelpTest, EndsWithItsKeyAndWithEscape) {
  EXPECT_EQ(Explained(kKeyF1, kCtrlMask), "Key help off");
  Press(kKeyF5);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Refresh"));
  EXPECT_EQ(Explained(kKeyF1, kCtrlMask),
            "Key help on. Each key says what it does. Escape ends it.");
  EXPECT_EQ(Explained(kKeyEscape), "Key help off");
  EXPECT_FALSE(Press(kKeyEscape));
}

TEST_F(KeyHelpTest, KeysThatAreEchoedAreNamedOnce) {
  p.Service()->KeyBoardEcho(true);
  p.desktop.windows.active = p.Inside().form->hwnd();
  p.Spoken();
  p.desktop.PressKey(kKeyF5);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(Explained(kKeyF5), "F5, loads the page again");
  EXPECT_EQ(Explained(kKeyEscape), "Key help off");
  p.desktop.PressKey(kKeyF5);
  EXPECT_THAT(p.Spoken(), ElementsAre("F5 (urgent)"));
}

TEST_F(KeyHelpTest, AModifierIsTheSameWithAnotherOneDown) {
  EXPECT_EQ(Explained(kKeyControl, kShiftMask), "Control, silences what is being said");
  EXPECT_EQ(Explained(kKeyShift, kCtrlMask), "Shift");
}

TEST_F(KeyHelpTest, HoldsNobodyWhenTheMannerChangesMeanwhile) {
  std::vector<std::string> values;
  const auto options = p.desktop.own_options.list();
  for (const OwnOption& option : options) values.push_back(option.value);
  values[0] = options[0].choices[0];
  p.desktop.own_options.apply(values);
  EXPECT_FALSE(Press(kKeyEscape));
  EXPECT_FALSE(Press('H'));
}

TEST(KeyHelpEstablished, TheKeyIsThePages) {
  Program p;
  p.StartTalking();
  KeyEvent key{kKeyF1, kCtrlMask};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, kKeyF1);
}

// What is explained must be what is done: a command that takes the key everywhere leaves
// an area nothing.
TEST(AreaKeys, NoAreaHasAKeyThatTheWindowTakesEverywhere) {
  for (const AreaKey& each : AllAreaKeys()) {
    for (const KeyCommand& command : AllKeyCommands()) {
      if (command.run == nullptr) continue;
      EXPECT_FALSE(command.KeyCode == each.KeyCode && command.Shift == each.Shift) << each.does;
    }
  }
}

}  // namespace
}  // namespace corvane::tests
