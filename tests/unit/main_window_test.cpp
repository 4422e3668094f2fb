#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(MainWindow, FirstRunUsesTheDefaults) {
  Program p;
  p.Start();
  const auto& form = p.desktop.Get<FakeForm>("frmCorvane");
  EXPECT_EQ(form.left, 500);
  EXPECT_EQ(form.top, 350);
  EXPECT_EQ(form.width, 8500);
  EXPECT_EQ(form.height, 6500);
  const MainMenu& menu = p.Inside().menu;
  EXPECT_FALSE(menu.mnuSpeech(0).Checked());
  EXPECT_FALSE(menu.mnuSpeech(1).Checked());
  EXPECT_EQ(menu.mnuRate.FirstChecked(), 2);
  EXPECT_EQ(menu.mnuPitch.FirstChecked(), 2);
  EXPECT_EQ(menu.mnuSideBarContent.FirstChecked(), 5);
  EXPECT_EQ(menu.mnuTextHistory.FirstChecked(), 0);
  EXPECT_EQ(menu.mnuHome.FirstChecked(), 3);
  EXPECT_EQ(menu.mnuFocus.FirstChecked(), 3);
  EXPECT_FALSE(menu.mnuSettings(7).Checked());
}

TEST(MainWindow, StoredChoicesAreReplayed) {
  Program p;
  p.desktop.settings.Main("MainLeft") = "1.5";
  p.desktop.settings.Main("Speech") = "True";
  p.desktop.settings.Main("KeyEcho") = "True";
  p.desktop.settings.Main("Rate") = "4";
  p.desktop.settings.Main("Pitch") = "0";
  p.desktop.settings.Main("StatusChange") = "True";
  p.desktop.settings.Pane("Home") = "2";
  p.Start();
  const MainMenu& menu = p.Inside().menu;
  EXPECT_EQ(p.desktop.Get<FakeForm>("frmCorvane").left, 1.5F);
  EXPECT_TRUE(menu.mnuSpeech(0).Checked());
  EXPECT_TRUE(menu.mnuSpeech(1).Checked());
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 250);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 50);
  EXPECT_EQ(menu.mnuHome.FirstChecked(), 2);
  EXPECT_TRUE(menu.mnuSettings(7).Checked());
  EXPECT_TRUE(p.Inside().ctlWebBrowser1.Inside().state.blnStatusFeedback);
}

TEST(MainWindow, ChoicesAreReplayedInTheirOrder) {
  Program first_run;
  first_run.Start();
  EXPECT_THAT(first_run.desktop.settings.saves,
              ElementsAre("SideBar=5", "TextHistory=0", "Home=3", "Focus=3", "Rate=2", "Pitch=2"));
  Program p;
  p.desktop.settings.Main("Speech") = "True";
  p.desktop.settings.Main("KeyEcho") = "True";
  p.desktop.settings.Main("StatusChange") = "True";
  p.Start();
  EXPECT_THAT(p.desktop.settings.saves,
              ElementsAre("SideBar=5", "TextHistory=0", "Home=3", "Focus=3", "Speech=True",
                          "KeyEcho=True", "Rate=2", "Pitch=2", "StatusChange=True"));
}

TEST(MainWindow, PaneHasItsStatusBarAndSpeechBeforeTheChoicesAreReplayed) {
  Program p;
  p.desktop.settings.Pane("SideBar") = "rubbish";  // nothing is replayed
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("FormLoad Error: Type mismatch"));
  EXPECT_EQ(p.desktop.boxes.shown[0].icon, MessageBox::Icon::Critical);
  EXPECT_THAT(p.desktop.settings.saves, IsEmpty());
  p.Browser().StatusTextChange.Raise("Loading");
  EXPECT_EQ(p.Status().PanelText(1), "Loading");
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  p.MakeReady();
  p.Address().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre(" Address Box"));
}

TEST(MainWindow, KeyboardEchoStoredWithoutSpeechIsOnlyMarked) {
  Program p;
  p.desktop.settings.Main("KeyEcho") = "True";
  p.Start();
  EXPECT_TRUE(p.Inside().menu.mnuSpeech(1).Checked());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(MainWindow, SpeechSettingIsCaseSensitive) {
  Program p;
  p.desktop.settings.Main("Speech") = "true";
  p.Start();
  EXPECT_FALSE(p.Inside().menu.mnuSpeech(0).Checked());
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
}

TEST(MainWindow, SayIsSilentWhileItsOwnSpeechItemIsUnchecked) {
  Program p;
  p.StartTalking();
  p.desktop.settings.Main("Speech") = "False";
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Spoken();
  ISpeechNotify& silent = *p.Window(1);
  silent.Say("not heard", true);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  ISpeechNotify& talking = *p.Window(0);
  talking.Say("heard", false);
  EXPECT_THAT(p.Spoken(), ElementsAre("heard"));
}

TEST(MainWindow, ClosingSavesThePlacement) {
  Program p;
  p.Start();
  auto& form = p.desktop.Get<FakeForm>("frmCorvane");
  form.left = 120;
  form.top = 75.5F;
  form.width = 9000;
  form.height = 7000;
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.settings.Main("MainLeft"), "120");
  EXPECT_EQ(p.desktop.settings.Main("MainTop"), "75.5");
  EXPECT_EQ(p.desktop.settings.Main("MainWidth"), "9000");
  EXPECT_EQ(p.desktop.settings.Main("MainHeight"), "7000");
}

TEST(MainWindow, ValueThatCannotBeStoredCostsNoOther) {
  Program p;
  p.Start();
  p.desktop.settings.refused = {"MainLeft", "MainWidth"};
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.settings.Main("MainTop"), "350");
  EXPECT_EQ(p.desktop.settings.Main("MainHeight"), "6500");
  EXPECT_THAT(p.process.Forms(), IsEmpty());
  EXPECT_EQ(p.desktop.Living("frmProcess"), 0U);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(MainWindow, ClosingAMaximizedWindowSavesThatGeometry) {
  Program p;
  p.Start();
  auto& form = p.desktop.Get<FakeForm>("frmCorvane");
  form.state = Form::WindowState::Maximized;
  form.width = 19200;
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.settings.Main("MainWidth"), "19200");
}

TEST(MainWindow, ClosingAMinimisedWindowLeavesTheStoredPlacement) {
  Program p;
  p.desktop.settings.Main("MainLeft") = "777";
  p.Start();
  auto& form = p.desktop.Get<FakeForm>("frmCorvane");
  form.state = Form::WindowState::Minimized;
  form.left = -480000;
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.settings.Main("MainLeft"), "777");
  EXPECT_FALSE(p.desktop.settings.Has("Corvane", "MainTop"));
}

TEST(MainWindow, ValueThatIsNoNumberStopsTheLoadWithItsMessage) {
  Program p;
  p.desktop.settings.Main("MainTop") = "rubbish";
  p.desktop.settings.Main("Speech") = "True";
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("FormLoad Error: Type mismatch"));
  const auto& form = p.desktop.Get<FakeForm>("frmCorvane");
  EXPECT_EQ(form.left, 500);  // before the bad value
  EXPECT_EQ(form.width, 0);   // after it nothing was set
  EXPECT_FALSE(p.Inside().menu.mnuSpeech(0).Checked());
  EXPECT_EQ(p.Inside().menu.mnuRate.FirstChecked(), -1);
}

TEST(MainWindow, UnloadGivesUpOneClaimOnSpeech) {
  Program p;
  p.StartTalking();
  Application other(p.process);
  other.StartBrowser(p.Service());  // its stored "True" makes the second claim
  p.Window(0)->Unload();
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
  p.Service()->SpeechTerminate();
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
}

TEST(MainWindow, EchoOfAnotherProgramEndsWhenAWindowOpens) {
  Program p;
  p.StartTalking();
  p.Service()->KeyBoardEcho(true);  // nothing is stored
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  EXPECT_FALSE(p.Service()->gMSAgent()->blnKeyboardEcho);
}

TEST(MainWindow, EchoOfAnotherProgramOutlivesWindowsThatOpenAsIsUsualToday) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.StartTalking();
  p.Service()->KeyBoardEcho(true);
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
  EXPECT_TRUE(p.Inside(1).menu.mnuSpeech(1).Checked());
  p.Inside(1).menu.mnuSpeech(1).Click.Raise();
  EXPECT_FALSE(p.Service()->gMSAgent()->blnKeyboardEcho);
}

TEST(MainWindow, AStoredEchoHoldsInEveryWindowThatOpens) {
  for (const char* manner : {"0", "1"}) {
    Program p;
    p.desktop.settings.Main("Manner") = manner;
    p.desktop.settings.Main("KeyEcho") = "True";
    p.StartTalking();
    p.Inside().menu.mnuFileItem(0).Click.Raise();
    EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho) << manner;
    EXPECT_TRUE(p.Inside(0).menu.mnuSpeech(1).Checked()) << manner;
    EXPECT_TRUE(p.Inside(1).menu.mnuSpeech(1).Checked()) << manner;
  }
}

TEST(MainWindow, FirstWindowTakesAPartOfTheScreen) {
  Program p;
  p.Start();
  EXPECT_FALSE(p.desktop.Get<FakeForm>("frmCorvane").fills_screen);
  EXPECT_EQ(p.desktop.Get<FakeForm>("frmCorvane").width, 8500);
}

TEST(MainWindow, WindowsOfAFirstRunTakeAllOfTheScreenAsIsUsualToday) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.Start();
  const auto fills = [&](std::size_t window) {
    return dynamic_cast<FakeForm&>(*p.Inside(window).form).fills_screen;
  };
  EXPECT_TRUE(fills(0));
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  EXPECT_TRUE(fills(1)) << "the second";
  p.Window(1)->Unload();  // stores its place
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  EXPECT_FALSE(fills(1));
}

TEST(MainWindow, AStoredPlaceIsTakenAsItWas) {
  for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"}) {
    Program p;
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Main(key) = "7000";
    p.Start();
    EXPECT_FALSE(p.desktop.Get<FakeForm>("frmCorvane").fills_screen) << key;
  }
}

TEST(MainWindow, EchoSwitchedInOneWindowShowsInAll) {
  Program p;
  p.StartTalking();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Inside(1).menu.mnuSpeech(1).Click.Raise();
  EXPECT_TRUE(p.Inside(0).menu.mnuSpeech(1).Checked());
  EXPECT_TRUE(p.Inside(1).menu.mnuSpeech(1).Checked());
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
}

TEST(MainWindow, NoticeOfTheDesktopStaysInThePanelOfItsOwn) {
  Program p;
  p.Start();
  p.desktop.Notice.Raise("There is no sound device");
  p.Read(MakePage("http://a/", "A", ""));
  EXPECT_EQ(p.Status().PanelText(2), "There is no sound device");
}

}  // namespace
}  // namespace corvane::tests
