#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

std::vector<std::string> captions(const MenuArray& array) {
  std::vector<std::string> all;
  for (int i = 0; i < array.Count(); ++i) all.push_back(array(i).Caption());
  return all;
}

TEST(MainMenu, CaptionsStandAsTheyAre) {
  Program p;
  p.Start();
  const MainMenu& m = p.Inside().menu;
  EXPECT_THAT(captions(m.mnuFile),
              ElementsAre("&File", "&Edit", "&Go", "Settin&gs", "&View", "Spee&ch", "Help"));
  EXPECT_THAT(captions(m.mnuFileItem), ElementsAre("&New Window", "&Open Web Site", "Open &File",
                                                   "&Save as", "-", "&Print", "-", "E&xit"));
  EXPECT_THAT(captions(m.mnuEdit), ElementsAre("Cu&t", "&Copy", "&Paste", "-", "Select &All"));
  EXPECT_THAT(captions(m.mnuGo),
              ElementsAre("&Back", "&Forward", "S&top", "&Refresh", "&Home", "S&earch"));
  EXPECT_THAT(captions(m.mnuSettings),
              ElementsAre("&IE Settings", "-", "Side&Bar", "&Text History", "&Home", "Auto&Focus",
                          "-", "Enable &Status Change Feedback"));
  EXPECT_THAT(
      captions(m.mnuSideBarContent),
      ElementsAre("None", "-", "Favorites", "History", "Page Structure", "Accessibility Browser"));
  EXPECT_THAT(captions(m.mnuTextHistory), ElementsAre("Clear with New Page", "Never Clear"));
  EXPECT_THAT(captions(m.mnuHome),
              ElementsAre("None", "-", "Use Explorer's", "Use Corvane's", "Last one Opened"));
  EXPECT_THAT(captions(m.mnuFocus),
              ElementsAre("None", "-", "Links", "SideBar", "WebBrowser", "Text Box"));
  EXPECT_THAT(captions(m.mnuView), ElementsAre("&Toolbar", "&Statusbar"));
  EXPECT_THAT(captions(m.mnuSpeech),
              ElementsAre("Enable Speech", "Enable Keyboard Echo", "-", "Rate", "&Pitch"));
  EXPECT_THAT(captions(m.mnuRate), ElementsAre("Very Slow", "Slow", "Normal", "Fast", "Very Fast"));
  EXPECT_THAT(captions(m.mnuPitch), ElementsAre("Very Low", "Low", "Normal", "High", "Very High"));
  EXPECT_THAT(captions(m.mnuHelp), ElementsAre("&Contents", "&About"));
}

TEST(MenuCommands, RateChosenWhileSpeechIsOffIsOnlyStored) {
  Program p;
  p.Start();
  p.Inside().menu.mnuRate(3).Click.Raise();
  EXPECT_EQ(p.Inside().menu.mnuRate.FirstChecked(), 3);
  EXPECT_EQ(p.desktop.settings.Main("Rate"), "3");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(MenuCommands, RateAndPitchReachTheCharacter) {
  Program p;
  p.StartTalking();
  p.Inside().menu.mnuRate(0).Click.Raise();
  p.Inside().menu.mnuPitch(4).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 50);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 130);
  EXPECT_EQ(p.desktop.settings.Main("Pitch"), "4");
}

TEST(MenuCommands, SpeechItemTogglesStoresAndClaims) {
  Program p;
  p.Start();
  MenuItem& speech = p.Inside().menu.mnuSpeech(0);
  speech.Click.Raise();
  EXPECT_TRUE(speech.Checked());
  EXPECT_EQ(p.desktop.settings.Main("Speech"), "True");
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
  EXPECT_FALSE(speech.Enabled());  // until the character is ready
  p.MakeReady();
  EXPECT_TRUE(speech.Enabled());
  speech.Click.Raise();
  EXPECT_EQ(p.desktop.settings.Main("Speech"), "False");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
}

TEST(MenuCommands, SpeechSwitchedOnInOneWindowIsNotCheckedInTheOther) {
  Program p;
  p.Start();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Inside(0).menu.mnuSpeech(0).Click.Raise();
  EXPECT_TRUE(p.Inside(0).menu.mnuSpeech(0).Checked());
  EXPECT_FALSE(p.Inside(1).menu.mnuSpeech(0).Checked());
}

TEST(MenuCommands, EchoStateIsHandedOverWhenSpeechComesOn) {
  Program p;
  p.desktop.settings.Main("KeyEcho") = "True";
  p.Start();
  EXPECT_TRUE(p.Inside().menu.mnuSpeech(1).Checked());
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
}

TEST(MenuCommands, StatusFeedbackTogglesItsMarkButThePanesFlagStaysSet) {
  Program p;
  p.Start();
  MenuItem& item = p.Inside().menu.mnuSettings(7);
  const PaneState& state = p.Inside().ctlWebBrowser1.Inside().state;
  item.Click.Raise();
  EXPECT_TRUE(item.Checked());
  EXPECT_EQ(p.desktop.settings.Main("StatusChange"), "True");
  EXPECT_TRUE(state.blnStatusFeedback);
  item.Click.Raise();
  EXPECT_FALSE(item.Checked());
  EXPECT_EQ(p.desktop.settings.Main("StatusChange"), "False");
  EXPECT_TRUE(state.blnStatusFeedback);
}

TEST(MenuCommands, ChoicesGoToThePaneToo) {
  Program p;
  p.Start();
  p.Inside().menu.mnuHome(4).Click.Raise();
  p.Inside().menu.mnuTextHistory(1).Click.Raise();
  p.Inside().menu.mnuFocus(5).Click.Raise();
  p.Inside().menu.mnuSideBarContent(0).Click.Raise();
  PaneMenu& pane = p.Inside().ctlWebBrowser1.Inside().menu;
  EXPECT_EQ(pane.mnuHome.FirstChecked(), 4);
  EXPECT_EQ(pane.mnuTextHistory.FirstChecked(), 1);
  EXPECT_EQ(pane.mnuFocus().FirstChecked(), 5);
  EXPECT_EQ(pane.mnuSideBarContent.FirstChecked(), 0);
  EXPECT_EQ(p.desktop.settings.Pane("Home"), "4");
  EXPECT_EQ(p.desktop.settings.Pane("TextHistory"), "1");
  EXPECT_EQ(p.desktop.settings.Pane("Focus"), "5");
  EXPECT_EQ(p.desktop.settings.Pane("SideBar"), "0");
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(MenuCommands, ExitClosesThisWindowOnly) {
  Program p;
  p.Start();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Inside(1).menu.mnuFileItem(7).Click.Raise();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_EQ(p.desktop.Living("frmProcess"), 1U);
}

TEST(MenuCommands, WhatIsNotThereYetIsDisabledAndDoesNothing) {
  Program p;
  p.Start();
  MenuItem& back = p.Inside().menu.mnuGo(0);
  EXPECT_FALSE(back.Enabled());
  back.Click.Raise();
  EXPECT_FALSE(p.Inside().menu.mnuSettings(0).Enabled());
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  EXPECT_EQ(p.process.Forms().size(), 1U);
}

}  // namespace
}  // namespace corvane::tests
