#include "speech/KeyName.h"
#include "speech/KeyWords.h"
#include "speech/MenuWords.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(KeyName, NamedKeys) {
  const std::vector<std::pair<int, std::string>> names = {
      {27, "Escape"},    {112, "F1"},          {113, "F2"},          {121, "F10"},
      {123, "F12"},      {42, "Print Screen"}, {145, "Scroll Lock"}, {19, "Pause"},
      {9, "Tab"},        {45, "Insert"},       {36, "Home"},         {33, "Page Up"},
      {144, "Num Lock"}, {46, "Delete"},       {35, "End"},          {34, "Page Down"},
      {20, "Caps Lock"}, {13, "Enter"},        {16, "Shift"},        {17, "Control"},
      {18, "Alt"},       {40, "Down"},         {38, "Up"},           {37, "Left"},
      {39, "Right"},     {32, "Space"},        {91, "Window"}};
  for (const auto& [code, name] : names) EXPECT_EQ(KeyName(code), name) << code;
}

TEST(KeyName, OtherKeysAreTheCharacterOfTheirCode) {
  EXPECT_EQ(KeyName('A'), "A");
  EXPECT_EQ(KeyName('7'), "7");
  EXPECT_EQ(KeyName(44), ",");   // the snapshot key
  EXPECT_EQ(KeyName(124), "|");  // F13
  EXPECT_EQ(KeyName(188), "\u00BC");
  EXPECT_EQ(KeyName(92), "\\");
}

TEST(KeyName, KeyWithoutACodeHasNoName) { EXPECT_EQ(KeyName(0), ""); }

TEST(KeyWords, PunctuationIsNamedAsTheLayoutHasIt) {
  const std::vector<std::tuple<int, char32_t, std::string>> names = {
      {188, U',', "comma"},        {190, U'.', "period"},       {189, U'-', "minus"},
      {187, U'=', "equals"},       {191, U'/', "slash"},        {186, U';', "semicolon"},
      {222, U'\'', "apostrophe"},  {219, U'[', "left bracket"}, {220, U'\\', "backslash"},
      {192, U'`', "grave accent"}, {226, U'<', "less than"},    {191, U'#', "number sign"},
      {220, U'^', "circumflex"}};
  for (const auto& [code, character, name] : names) EXPECT_EQ(KeyWords({code, character}), name);
}

TEST(KeyWords, WhatTheKeyTypesDecidesNotItsPlace) {
  EXPECT_EQ(KeyWords({219, U'\u00FC'}), "\u00FC") << "beside P on a German keyboard";
  EXPECT_EQ(KeyWords({'1', U'&'}), "ampersand") << "the first of the row on a French one";
  EXPECT_EQ(KeyWords({'F', U'\u0430'}), "\u0430") << "left on a Russian one";
}

TEST(KeyWords, LettersAndDigitsAreWhatTheyWere) {
  EXPECT_EQ(KeyWords({'A', U'a'}), "A");
  EXPECT_EQ(KeyWords({'7', U'7'}), "7");
  EXPECT_EQ(KeyWords({'Q', 0}), "Q");
}

TEST(KeyWords, KeysOfTheKeypadSayThatTheyAre) {
  EXPECT_EQ(KeyWords({103, U'7'}), "keypad 7");
  EXPECT_EQ(KeyWords({96, 0}), "keypad 0");
  EXPECT_EQ(KeyWords({107, U'+'}), "keypad plus");
  EXPECT_EQ(KeyWords({110, U'.'}), "keypad period");
  EXPECT_EQ(KeyWords({110, U','}), "keypad comma") << "a layout that writes its decimals so";
}

TEST(KeyWords, SpecialKeysHaveTheirNames) {
  const std::vector<std::pair<int, std::string>> names = {
      {8, "Backspace"}, {44, "Print Screen"}, {91, "left Windows"}, {92, "right Windows"},
      {93, "Menu"},     {112, "F1"},          {123, "F12"},         {124, "F13"},
      {135, "F24"},     {175, "Volume Up"},   {13, "Enter"},        {32, "Space"},
      {46, "Delete"},   {27, "Escape"},       {144, "Num Lock"},    {36, "Home"}};
  for (const auto& [code, name] : names) EXPECT_EQ(KeyWords({code, 0}), name) << code;
}

TEST(KeyWords, NoKeyIsSilentButOneThatIsNone) {
  EXPECT_EQ(KeyWords({0, 0}), "");
  EXPECT_EQ(KeyWords({0, U'\u00E9'}), "\u00E9");
  EXPECT_EQ(KeyWords({230, 0}), "unnamed key");
}

MenuSelect Item(const std::string& text, int item, unsigned flags) { return {item, flags, text}; }

TEST(MenuWords, AccessKeyMarksAreTakenOut) {
  EXPECT_EQ(MenuWords(Item("&New Window", 5, kMenuHilite)), "New Window");
  EXPECT_EQ(MenuWords(Item("Sa&v&e", 8, kMenuHilite)), "Save");
}

TEST(MenuWords, CheckedAndUncheckedItems) {
  EXPECT_EQ(MenuWords(Item("Enable Speech", 53, kMenuHilite | kMenuChecked)),
            "Enable Speech checked");
  EXPECT_EQ(MenuWords(Item("Enable Speech", 53, kMenuHilite)), "Enable Speech unchecked");
  EXPECT_EQ(MenuWords(Item("None", 27, kMenuHilite)), "None unchecked");
  EXPECT_EQ(MenuWords(Item("Very High", 67, kMenuHilite)), "Very High unchecked");
}

TEST(MenuWords, ItemsThatCarryNoMarkSayNeither) {
  EXPECT_EQ(MenuWords(Item("E&xit", 12, kMenuHilite)), "Exit");
  EXPECT_EQ(MenuWords(Item("&IE Settings", 24, kMenuHilite)), "IE Settings");
  EXPECT_EQ(MenuWords(Item("Side&Bar", 26, kMenuHilite)), "SideBar");
  EXPECT_EQ(MenuWords(Item("&Contents", 68, kMenuHilite)), "Contents");
  EXPECT_EQ(MenuWords(Item("Toolbar", 51, 0)), "Toolbar");  // not highlighted
}

TEST(MenuWords, SubmenusSayPopupAndTheBarsTitlesDoNot) {
  EXPECT_EQ(MenuWords(Item("Side&Bar", 2, kMenuHilite | kMenuPopup)), "SideBar popup");
  for (const char* title : {"&File", "&Edit", "&Go", "Settin&gs", "&View", "Spee&ch", "Help"}) {
    EXPECT_EQ(MenuWords(Item(title, 0, kMenuHilite | kMenuPopup)),
              text::replace_all(title, "&", ""));
  }
}

TEST(MenuWords, FirstStateThatHoldsWins) {
  const unsigned all = kMenuDisabled | kMenuSystem | kMenuPopup | kMenuChecked | kMenuHilite;
  EXPECT_EQ(MenuWords(Item("Rate", 0, all)), "Rate diabled");
  EXPECT_EQ(MenuWords(Item("", 0, all)), "");
  EXPECT_EQ(MenuWords(Item("", 0, all & ~kMenuDisabled)), "sysmenu");
  EXPECT_EQ(MenuWords(Item("Rate", 3, all & ~kMenuDisabled)), "Rate popup");
  EXPECT_EQ(MenuWords(Item("Close", 5, kMenuSystem | kMenuChecked)), "Close checked");
  EXPECT_EQ(MenuWords(Item("Fast", 60, kMenuChecked | kMenuHilite)), "Fast checked");
}

TEST(MenuWords, LongCaptionsAreCutAt127Characters) {
  const std::string text(200, 'x');
  EXPECT_EQ(MenuWords(Item(text, 5, 0)), std::string(127, 'x'));
}

TEST(MenuNumbers, RunOverTheMarkedItems) {
  Program p;
  p.Start();
  const MainMenu& m = p.Inside().menu;
  EXPECT_EQ(m.mnuFileItem(0).Id(), kFirstMenuId);
  EXPECT_EQ(m.mnuSideBarContent(0).Id(), kMarkedIds.first);
  EXPECT_EQ(m.mnuRate(0).Id(), kRateIds.first);
  EXPECT_EQ(m.mnuRate(4).Id(), kRateIds.last);
  EXPECT_EQ(m.mnuPitch(0).Id(), kPitchIds.first);
  EXPECT_EQ(m.mnuPitch(4).Id(), kMarkedIds.last);
  for (const MenuArray* marked : {&m.mnuTextHistory, &m.mnuHome, &m.mnuFocus, &m.mnuView}) {
    for (int i = 0; i < marked->Count(); ++i) EXPECT_TRUE(IndexIn(kMarkedIds, (*marked)(i).Id()));
  }
  EXPECT_FALSE(IndexIn(kMarkedIds, m.mnuSettings(0).Id()));
  EXPECT_FALSE(IndexIn(kMarkedIds, m.mnuHelp(0).Id()));
}

/// The program with its character ready.
struct KeyboardEcho : ::testing::Test {
  Program program;
  void SetUp() override { program.StartTalking(); }
  MSAgent& Agent() { return *program.Service()->gMSAgent(); }
  void Press(int code, char32_t character = 0) { program.desktop.PressKey(code, character); }
  void Highlight(const MenuSelect& select) {
    program.desktop.message_hook->MenuSelected.Raise(select);
  }
  std::vector<std::string>& Calls() { return program.desktop.speech.calls; }
};

TEST_F(KeyboardEcho, KeysAreSilentUntilEchoIsOn) {
  Press('A');
  EXPECT_THAT(Calls(), IsEmpty());
  Agent().blnKeyboardEcho = true;
  Press('A');
  EXPECT_THAT(Calls(), ElementsAre("stop", "speak \\Pit=90\\\\Spd=150\\A (urgent)"));
}

TEST_F(KeyboardEcho, EchoCutsOffSpeechAndIsKeptFromTheNextTwoMessages) {
  Agent().blnKeyboardEcho = true;
  Press('A');
  Calls().clear();
  Agent().Say("one", false);
  Agent().Say("two", false);
  EXPECT_EQ(std::count(Calls().begin(), Calls().end(), "stop"), 0);
}

TEST_F(KeyboardEcho, CharactersOfAHiddenPasswordAreStars) {
  Program hiding;
  hiding.desktop.settings.Pane("Passwords") = "hidden";
  hiding.StartTalking();
  hiding.Service()->gMSAgent()->blnKeyboardEcho = true;
  const auto named = [&](int key, bool into_password) {
    hiding.desktop.keyboard_hooks.back()->into_password = into_password;
    hiding.Spoken();
    hiding.desktop.keyboard_hook->KeyDown.Raise({key});
    const auto said = hiding.Spoken();
    return said.empty() ? "nothing" : said.back();
  };
  for (const int key : {int('A'), int('7'), 32, 97, 188}) {
    EXPECT_EQ(named(key, true), "star (urgent)") << key;
  }
  EXPECT_EQ(named('A', false), "A (urgent)");
  EXPECT_EQ(named(9, true), "Tab (urgent)");
  EXPECT_EQ(named(37, true), "Left (urgent)");
}

TEST_F(KeyboardEcho, PasswordsAreNamedLikeOtherKeysUnlessTheyAreHidden) {
  Agent().blnKeyboardEcho = true;
  program.desktop.keyboard_hooks.back()->into_password = true;
  Press('A');
  EXPECT_EQ(Calls().back(), "speak \\Pit=90\\\\Spd=150\\A (urgent)");
}

TEST_F(KeyboardEcho, ControlSilencesTheProgram) {
  Press(17);
  EXPECT_THAT(Calls(), ElementsAre("stop"));
}

TEST_F(KeyboardEcho, ControlWithEchoSilencesAndSaysItsName) {
  Agent().blnKeyboardEcho = true;
  Press(17);
  ASSERT_FALSE(Calls().empty());
  EXPECT_EQ(Calls().front(), "stop");
  EXPECT_EQ(Calls().back(), "speak \\Pit=90\\\\Spd=150\\Control (urgent)");
}

TEST_F(KeyboardEcho, CommaIsTheCharacterOfItsCode) {
  Agent().blnKeyboardEcho = true;
  Press(188, U',');
  EXPECT_THAT(program.Spoken(), ElementsAre("\u00BC (urgent)"));
}

TEST_F(KeyboardEcho, CommaIsAWordAsIsUsualToday) {
  Program today;
  today.desktop.settings.Main("Manner") = "1";
  today.desktop.settings.Main("KeyEcho") = "True";
  today.StartTalking();
  today.desktop.keyboard_hook->KeyDown.Raise({188, U','});
  EXPECT_THAT(today.Spoken(), ElementsAre("comma (urgent)"));
}

TEST_F(KeyboardEcho, KeyWithoutACodeCutsNothingOff) {
  Agent().blnKeyboardEcho = true;
  Press(0);
  EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(KeyboardEcho, KeysBeforeTheCharacterIsReadyAreIgnored) {
  Program silent;
  silent.desktop.settings.Main("Speech") = "True";
  silent.desktop.settings.Main("KeyEcho") = "True";
  silent.Start();
  silent.desktop.PressKey('A', U'a');
  EXPECT_THAT(silent.desktop.speech.calls, IsEmpty());
}

TEST_F(KeyboardEcho, HighlightedItemIsSpokenAsAnOrdinaryMessage) {
  Highlight({program.Inside().menu.mnuView(0).Id(), kMenuHilite | kMenuChecked, "&Toolbar"});
  EXPECT_THAT(Calls(), ElementsAre("stop", "speak \\Pit=90\\\\Spd=150\\Toolbar checked"));
}

TEST_F(KeyboardEcho, RateItemIsSpokenAtItsRateWhichIsThenRestored) {
  Highlight({60, kMenuHilite | kMenuChecked, "Fast"});
  EXPECT_THAT(Calls(), ElementsAre("stop", "speak \\Pit=90\\\\Spd=200\\Fast checked"));
  EXPECT_EQ(Agent().Speed(), 150);
}

TEST_F(KeyboardEcho, PitchItemIsSpokenAtItsPitchWhichIsThenRestored) {
  Highlight({63, kMenuHilite, "Very Low"});
  EXPECT_THAT(Calls(), ElementsAre("stop", "speak \\Pit=50\\\\Spd=150\\Very Low unchecked"));
  EXPECT_EQ(Agent().Pitch(), 90);
}

TEST_F(KeyboardEcho, PreviewBeforeAnyRateIsChosenLeavesNone) {
  FakeDesktop desktop;
  ProcessSpeech speech{desktop};
  MSAgent agent{desktop, speech};
  agent.Load_Init(nullptr);
  desktop.timers[0]->Fire();
  desktop.speech.agent->BecomeReady();
  desktop.message_hook->MenuSelected.Raise({57, kMenuHilite, "Very Slow"});
  desktop.message_hook->MenuSelected.Raise({67, kMenuHilite, "Very High"});
  agent.Say("after", false);
  EXPECT_THAT(desktop.speech.Spoken(),
              ElementsAre("\\Pit=\\\\Spd=50\\Very Slow unchecked",
                          "\\Pit=130\\\\Spd=\\Very High unchecked", "\\Pit=\\\\Spd=\\after"));
}

TEST_F(KeyboardEcho, EveryRateAndPitchItemIsPreviewed) {
  for (int i = 0; i < 5; ++i) {
    Calls().clear();
    Highlight({57 + i, kMenuHilite, "r"});
    Highlight({63 + i, kMenuHilite, "p"});
    const std::string speed = std::to_string(50 * (i + 1));
    const std::string pitch = std::to_string(50 + 20 * i);
    EXPECT_THAT(program.desktop.speech.Spoken(),
                ElementsAre("\\Pit=90\\\\Spd=" + speed + "\\r unchecked",
                            "\\Pit=" + pitch + "\\\\Spd=150\\p unchecked"));
  }
  EXPECT_EQ(Agent().Speed(), 150);
  EXPECT_EQ(Agent().Pitch(), 90);
}

TEST_F(KeyboardEcho, SpeechSwitchedOffTakesTheHooksAway) {
  ASSERT_TRUE(program.desktop.keyboard_hook->Enabled());
  ASSERT_TRUE(program.desktop.message_hook->Enabled());
  program.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(program.desktop.keyboard_hook, nullptr) << "they went with the agent form";
  EXPECT_EQ(program.desktop.message_hook, nullptr);
  EXPECT_EQ(program.desktop.hook, nullptr);
}

TEST(AgentHooks, MissingCharacterSwitchesAllThreeOff) {
  FakeDesktop desktop;
  ProcessSpeech speech{desktop};
  MSAgent agent{desktop, speech};
  desktop.speech.load_error = "talker.acf was not found";
  EXPECT_TRUE(desktop.keyboard_hook->enabled && desktop.message_hook->enabled);
  agent.Load_Init(nullptr);
  desktop.timers[0]->Fire();
  EXPECT_FALSE(desktop.keyboard_hook->enabled);
  EXPECT_FALSE(desktop.message_hook->enabled);
  EXPECT_FALSE(desktop.hook->enabled);
}

}  // namespace
}  // namespace corvane::tests
