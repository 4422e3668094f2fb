#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(SpeechMenu, PitchChosenWhileSpeechIsOffIsOnlyStored) {
  Program p;
  p.Start();
  p.Inside().menu.mnuPitch(0).Click.Raise();
  EXPECT_EQ(p.Inside().menu.mnuPitch.FirstChecked(), 0);
  EXPECT_EQ(p.desktop.settings.Main("Pitch"), "0");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(SpeechMenu, RateAndPitchChosenWhileSpeechIsOffHoldFromTheNextStart) {
  Program p;
  p.Start();
  p.Inside().menu.mnuRate(4).Click.Raise();
  p.Inside().menu.mnuPitch(0).Click.Raise();
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  Program next;
  next.desktop.settings.values = p.desktop.settings.values;
  next.Start();
  ASSERT_NE(next.Service()->gMSAgent(), nullptr);
  EXPECT_EQ(next.Service()->gMSAgent()->Speed(), 250);
  EXPECT_EQ(next.Service()->gMSAgent()->Pitch(), 50);
}

TEST(SpeechMenu, ChoicesThatCannotBeStoredHoldAllTheSame) {
  Program p;
  p.StartTalking();
  p.desktop.settings.refused = {"Rate", "Pitch", "StatusChange", "KeyEcho", "Speech"};
  MainMenu& menu = p.Inside().menu;
  menu.mnuRate(0).Click.Raise();
  menu.mnuPitch(4).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 50);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 130);
  menu.mnuSettings(7).Click.Raise();
  EXPECT_TRUE(menu.mnuSettings(7).Checked());
  EXPECT_TRUE(p.Inside().ctlWebBrowser1.Inside().state.blnStatusFeedback);
  menu.mnuSpeech(1).Click.Raise();
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
  menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(SpeechMenu, SpeechThatComesOnTellsTheEchoStateEvenWhenItIsOff) {
  Program p;
  p.Start();
  std::vector<bool> told;
  const auto listening =
      p.Service()->KeyboardEchoStatus.Connect([&](bool on) { told.push_back(on); });
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_THAT(told, ElementsAre(false));
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_THAT(told, ElementsAre(false)) << "and nothing when it goes";
}

TEST(SpeechMenu, RateChosenWhileSpeechIsOffIsOnlyStored) {
  Program p;
  p.Start();
  p.Inside().menu.mnuRate(3).Click.Raise();
  EXPECT_EQ(p.Inside().menu.mnuRate.FirstChecked(), 3);
  EXPECT_EQ(p.desktop.settings.Main("Rate"), "3");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(SpeechMenu, RateAndPitchReachTheCharacter) {
  Program p;
  p.StartTalking();
  p.Inside().menu.mnuRate(0).Click.Raise();
  p.Inside().menu.mnuPitch(4).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 50);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 130);
  EXPECT_EQ(p.desktop.settings.Main("Pitch"), "4");
}

TEST(SpeechMenu, SpeechItemTogglesStoresAndClaims) {
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
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 150);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 90);
  speech.Click.Raise();
  EXPECT_EQ(p.desktop.settings.Main("Speech"), "False");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
}

TEST(SpeechMenu, SpeechSwitchedOnInOneWindowIsNotCheckedInTheOther) {
  Program p;
  p.Start();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Inside(0).menu.mnuSpeech(0).Click.Raise();
  EXPECT_TRUE(p.Inside(0).menu.mnuSpeech(0).Checked());
  EXPECT_FALSE(p.Inside(1).menu.mnuSpeech(0).Checked());
}

TEST(SpeechMenu, EchoStateIsHandedOverWhenSpeechComesOn) {
  Program p;
  p.desktop.settings.Main("KeyEcho") = "True";
  p.Start();
  EXPECT_TRUE(p.Inside().menu.mnuSpeech(1).Checked());
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
}

TEST(SpeechMenu, EachWindowHasItsOwnEnableSpeech) {
  Program p;
  p.StartTalking();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  ASSERT_TRUE(p.Inside(1).menu.mnuSpeech(0).Checked());  // the stored choice
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  EXPECT_FALSE(p.Inside(1).menu.mnuSpeech(0).Checked());
  EXPECT_TRUE(p.Inside(0).menu.mnuSpeech(0).Checked());
  ASSERT_NE(p.Service()->gMSAgent(), nullptr);
  p.Spoken();
  static_cast<ISpeechNotify&>(*p.Window(1)).Say("silent", false);
  static_cast<ISpeechNotify&>(*p.Window(0)).Say("heard", false);
  EXPECT_THAT(p.Spoken(), ElementsAre("heard"));
}

TEST(SpeechMenu, TheCharacterLivesWhileAnyWindowHasSpeechOn) {
  Program p;
  p.StartTalking();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  const auto service = p.Service();
  p.Window(1)->Unload();
  EXPECT_NE(service->gMSAgent(), nullptr);
  p.Inside(0).menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(service->gMSAgent(), nullptr);
}

/// Two windows that share a character; `talking` and `mute` are numbers of windows.
struct TwoWindows : ::testing::TestWithParam<int> {
  Program p;
  int mute = GetParam();
  int talking = 1 - mute;

  void SetUp() override {
    p.StartTalking();
    p.Inside().menu.mnuFileItem(0).Click.Raise();
    Toggle(mute);
  }
  void Toggle(int window) {
    p.Inside(static_cast<std::size_t>(window)).menu.mnuSpeech(0).Click.Raise();
  }
  std::shared_ptr<frmCorvane> Window(int window) {
    return p.Window(static_cast<std::size_t>(window));
  }
};

TEST_P(TwoWindows, ClosingTheMuteOneLeavesTheOtherItsVoice) {
  const auto heard = Window(talking);
  Window(mute)->Unload();
  ASSERT_NE(p.Service()->gMSAgent(), nullptr);
  p.Spoken();
  static_cast<ISpeechNotify&>(*heard).Say("still here", false);
  EXPECT_THAT(p.Spoken(), ElementsAre("still here"));
}

TEST_P(TwoWindows, ClosingTheTalkingOneEndsSpeech) {
  const auto service = p.Service();
  Window(talking)->Unload();
  EXPECT_EQ(service->gMSAgent(), nullptr);
}

TEST_P(TwoWindows, NeitherKeysNorMenusAreHeardOnceSpeechIsOffInBoth) {
  p.Inside(static_cast<std::size_t>(talking)).menu.mnuSpeech(1).Click.Raise();  // the echo
  const auto service = p.Service();
  Toggle(talking);
  EXPECT_EQ(service->gMSAgent(), nullptr);
  Window(mute)->Unload();
  EXPECT_EQ(service->gMSAgent(), nullptr);
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  ASSERT_NE(service->gMSAgent(), nullptr);
  p.MakeReady();
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(service->gMSAgent(), nullptr) << "a window that was mute took a claim along";
}

INSTANTIATE_TEST_SUITE_P(SpeechMenu, TwoWindows, ::testing::Values(0, 1), [](const auto& each) {
  return each.param == 0 ? "FirstMute" : "SecondMute";
});

TEST(SpeechMenu, AClaimOfAnotherProgramOutlivesEveryWindowThatCloses) {
  Program p;
  p.Start();
  p.Service()->SpeechInit();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  p.Window(1)->Unload();
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
}

TEST(SpeechMenu, SpeechCanBeSwitchedOnAgainWhenItWentBeforeTheCharacterWasReady) {
  Program p;
  p.Start();
  MenuItem& speech = p.Inside().menu.mnuSpeech(0);
  p.Service()->SpeechInit();
  ASSERT_FALSE(speech.Enabled());
  p.Service()->SpeechTerminate();
  EXPECT_TRUE(speech.Enabled());
  speech.Click.Raise();
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
}

TEST(SpeechMenu, AWindowThatGoesDuringTheWelcomeLeavesTheFirstItsSpeechItem) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  ASSERT_FALSE(p.Inside(0).menu.mnuSpeech(0).Enabled());
  p.Window(1)->Unload();
  EXPECT_TRUE(p.Inside(0).menu.mnuSpeech(0).Enabled());
}

TEST(SpeechMenu, RateAndPitchHoldWhenSpeechComesOnAgain) {
  Program p;
  p.StartTalking();
  p.Inside().menu.mnuRate(4).Click.Raise();
  p.Inside().menu.mnuPitch(0).Click.Raise();
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 250);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 50);
}

TEST(SpeechMenu, RateAndPitchChosenWhileSpeechIsOffHoldWhenItComesOn) {
  Program p;
  p.Start();
  p.Inside().menu.mnuRate(3).Click.Raise();
  p.Inside().menu.mnuPitch(4).Click.Raise();
  p.Service()->SpeechInit();  // another program's; it knows of no rate
  p.MakeReady();
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 200);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 130);
}

TEST(SpeechMenu, AWindowThatJoinsInKeepsTheRateThatIsHeard) {
  Program p;
  p.StartTalking();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  p.Inside(0).menu.mnuRate(0).Click.Raise();
  p.Inside(1).menu.mnuSpeech(0).Click.Raise();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 50);
}

TEST(SpeechMenu, KeyboardEchoIsEnabledOnlyWhileSpeechIsOn) {
  Program p;
  p.Start();
  MenuItem& echo = p.Inside().menu.mnuSpeech(1);
  EXPECT_FALSE(echo.Enabled());
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_TRUE(echo.Enabled());
  echo.Click.Raise();
  EXPECT_TRUE(echo.Checked());
  EXPECT_EQ(p.desktop.settings.Main("KeyEcho"), "True");
  EXPECT_TRUE(p.Service()->gMSAgent()->blnKeyboardEcho);
  echo.Click.Raise();
  EXPECT_FALSE(p.Service()->gMSAgent()->blnKeyboardEcho);
  EXPECT_EQ(p.desktop.settings.Main("KeyEcho"), "False");
}

}  // namespace
}  // namespace corvane::tests
