#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct AgentForm : ::testing::Test {
  FakeDesktop desktop;
  ProcessSpeech speech{desktop};
  MSAgent agent{desktop, speech};

  FakeTimer& Timer1() { return *desktop.timers[0]; }
  FakeTimer& Timer2() { return *desktop.timers[1]; }
  FakeTimer& LoadLimit() { return *desktop.timers[2]; }
  void Ready() {
    agent.Load_Init(nullptr);
    Timer1().Fire();
    desktop.speech.agent->BecomeReady();
  }
};

TEST_F(AgentForm, LoadsShowsAndWelcomesInThatOrder) {
  agent.Load_Init(nullptr);
  EXPECT_THAT(desktop.speech.calls, IsEmpty());
  Timer1().Fire();
  EXPECT_FALSE(Timer1().enabled);
  EXPECT_THAT(desktop.speech.calls, ElementsAre("load Genie /opt/corvane/talker.acf"));
  desktop.speech.agent->CompleteLast();
  desktop.speech.agent->CompleteLast();
  EXPECT_THAT(desktop.speech.calls, ElementsAre("load Genie /opt/corvane/talker.acf", "show",
                                                "speak Hello, welcome to Corvane 2000"));
}

TEST_F(AgentForm, ProgramFolderThatEndsInASeparatorGetsNoSecondOne) {
  desktop.files.program_folder = "/";
  agent.Load_Init(nullptr);
  Timer1().Fire();
  EXPECT_THAT(desktop.speech.calls, ElementsAre("load Genie /talker.acf"));
}

TEST_F(AgentForm, NothingIsSpokenBeforeTheWelcomeHasEnded) {
  agent.Load_Init(nullptr);
  agent.Say("too early", true);
  Timer1().Fire();
  desktop.speech.agent->CompleteLast();
  desktop.speech.agent->CompleteLast();  // the welcome is being spoken
  desktop.speech.calls.clear();
  agent.Say("still too early", false);
  EXPECT_THAT(desktop.speech.calls, IsEmpty());
  desktop.speech.agent->CompleteLast();
  agent.Say("now", false);
  EXPECT_THAT(desktop.speech.Spoken(), ElementsAre("\\Pit=\\\\Spd=\\now"));
}

TEST_F(AgentForm, OtherRequestsDoNotMoveTheChainOn) {
  agent.Load_Init(nullptr);
  Timer1().Fire();
  desktop.speech.agent->RequestComplete.Raise(AgentRequest{0}, RequestEnd::Done);
  desktop.speech.agent->RequestComplete.Raise(AgentRequest{999}, RequestEnd::Done);
  EXPECT_EQ(desktop.speech.calls.size(), 1U);
}

TEST_F(AgentForm, TagsCarryPitchAndSpeed) {
  Ready();
  agent.SetPitch(2);
  agent.SetRate(2);
  agent.Say("Hello", false);
  EXPECT_THAT(desktop.speech.calls, ElementsAre("stop", "speak \\Pit=90\\\\Spd=150\\Hello"));
}

TEST_F(AgentForm, BeforeRateAndPitchAreSetTheTagsAreEmpty) {
  Ready();
  agent.Say("Hello", false);
  EXPECT_THAT(desktop.speech.Spoken(), ElementsAre("\\Pit=\\\\Spd=\\Hello"));
}

TEST_F(AgentForm, MenuStepsGiveTheirValues) {
  for (int i = 0; i < 5; ++i) {
    agent.SetRate(i);
    agent.SetPitch(i);
    EXPECT_EQ(agent.Speed(), 50 * (i + 1));
    EXPECT_EQ(agent.Pitch(), 50 + 20 * i);
  }
}

TEST_F(AgentForm, BackslashesAreSpokenAsSlashesAndNeverMakeATag) {
  Ready();
  agent.SetPitch(2);
  agent.SetRate(2);
  agent.Say("C:\\x \\Spd=999\\fast", false);
  EXPECT_THAT(desktop.speech.Spoken(), ElementsAre("\\Pit=90\\\\Spd=150\\C:/x /Spd=999/fast"));
}

TEST_F(AgentForm, UrgentMessageIsKeptFromTheNextTwoOrdinaryOnes) {
  Ready();
  agent.SetPitch(2);
  agent.SetRate(2);
  agent.Say("urgent", true);
  agent.Say("one", false);
  agent.Say("two", false);
  agent.Say("three", false);
  const std::string tags = "speak \\Pit=90\\\\Spd=150\\";
  EXPECT_THAT(desktop.speech.calls, ElementsAre("stop", tags + "urgent (urgent)", tags + "one",
                                                tags + "two", "stop", tags + "three"));
}

TEST_F(AgentForm, AnUrgentMessageCutsOffAnotherAndProtectsAnew) {
  Ready();
  agent.Say("a", true);
  agent.Say("b", false);
  agent.Say("c", true);
  desktop.speech.calls.clear();
  agent.Say("d", false);
  agent.Say("e", false);
  EXPECT_EQ(std::count(desktop.speech.calls.begin(), desktop.speech.calls.end(), "stop"), 0);
  agent.Say("f", false);
  EXPECT_EQ(std::count(desktop.speech.calls.begin(), desktop.speech.calls.end(), "stop"), 1);
}

TEST_F(AgentForm, MissingCharacterFileIsReportedAndTheHooksGoOff) {
  desktop.speech.load_error = "talker.acf was not found";
  EXPECT_TRUE(desktop.hook->enabled);
  agent.Load_Init(nullptr);
  Timer1().Fire();
  EXPECT_THAT(desktop.boxes.Texts(), ElementsAre("talker.acf was not found"));
  EXPECT_EQ(desktop.boxes.shown[0].icon, MessageBox::Icon::Critical);
  EXPECT_FALSE(desktop.hook->enabled);
  agent.Say("x", true);
  EXPECT_THAT(desktop.speech.calls, IsEmpty());
}

TEST_F(AgentForm, UnloadingSwitchesKeysOffFirstThenMenusThenActivation) {
  std::vector<std::string> switched;
  desktop.keyboard_hook->on_switch = [&](bool) { switched.push_back("keys"); };
  desktop.message_hook->on_switch = [&](bool) { switched.push_back("menus"); };
  desktop.hook->on_switch = [&](bool) { switched.push_back("activation"); };
  desktop.speech.load_error = "talker.acf was not found";
  agent.Load_Init(nullptr);
  Timer1().Fire();
  EXPECT_THAT(switched, ElementsAre("keys", "menus", "activation"));
  desktop.keyboard_hook->on_switch = nullptr;
  desktop.message_hook->on_switch = nullptr;
  desktop.hook->on_switch = nullptr;
}

TEST_F(AgentForm, TimersRunOnlyWhenTheirTimeHasCome) {
  EXPECT_EQ(Timer1().interval, 1);
  EXPECT_EQ(Timer2().interval, 1000);
  EXPECT_FALSE(Timer1().enabled);
  EXPECT_FALSE(Timer2().enabled);
  agent.Load_Init(nullptr);
  EXPECT_TRUE(Timer1().enabled);
  EXPECT_FALSE(Timer2().enabled);
}

TEST_F(AgentForm, CharacterThatNeverGetsReadyIsGivenUpAfterTheLimit) {
  agent.Load_Init(nullptr);
  Timer1().Fire();
  EXPECT_EQ(LoadLimit().interval, 60'000'000);
  LoadLimit().Fire();
  EXPECT_THAT(desktop.boxes.Texts(), ElementsAre(""));
  EXPECT_FALSE(desktop.hook->enabled);
}

TEST_F(AgentForm, LimitNoLongerCountsOnceTheCharacterIsReady) {
  Ready();
  EXPECT_FALSE(LoadLimit().enabled);
}

struct PageAlert : AgentForm {
  WindowHandle Alert(const std::string& caption, const std::string& button,
                     const std::string& message) {
    const auto window = desktop.windows.Add(caption, "#32770");
    desktop.windows.Add(button, "Button", window);
    desktop.windows.Add(message, "Static", window);
    return window;
  }
};

TEST_F(PageAlert, WithOnlyOkIsClosedAndShownAgainHere) {
  Ready();
  const auto window = Alert("Microsoft Internet Explorer", "OK", "Wrong password");
  desktop.hook->Activated.Raise(window);
  EXPECT_THAT(desktop.windows.closed, ElementsAre(window));
  EXPECT_FALSE(desktop.Get<FakeForm>("MSAgent").visible);
  EXPECT_EQ(Timer2().interval, 1000);
  Timer2().Fire();
  EXPECT_FALSE(Timer2().enabled);
  EXPECT_EQ(desktop.Get<FakeTextBox>("Text1").text, "Wrong password");
  EXPECT_TRUE(desktop.Get<FakeForm>("MSAgent").modal);
  EXPECT_EQ(desktop.Get<FakeForm>("MSAgent").Caption(), "Message Box");
  EXPECT_THAT(desktop.speech.calls,
              ElementsAre("stop", "speak \\Pit=\\\\Spd=\\Wrong password (urgent)",
                          "speak \\Pit=\\\\Spd=\\OK button"));
  EXPECT_EQ(desktop.focus, "cmdOK");
}

TEST_F(PageAlert, IsShownAlsoWhileTheCharacterIsNotReady) {
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "OK", "Early"));
  Timer2().Fire();
  EXPECT_EQ(desktop.Get<FakeTextBox>("Text1").text, "Early");
  EXPECT_TRUE(desktop.Get<FakeForm>("MSAgent").visible);
  EXPECT_THAT(desktop.speech.calls, IsEmpty());
}

TEST_F(PageAlert, OfTwoWithinASecondTheLaterIsShown) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "OK", "first"));
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "OK", "second"));
  EXPECT_EQ(desktop.windows.closed.size(), 2U);
  Timer2().Fire();
  EXPECT_EQ(desktop.Get<FakeTextBox>("Text1").text, "second");
}

TEST_F(PageAlert, WhoseButtonIsSpelledOtherwiseIsLeftAlone) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "Ok", "Hi"));
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer 5", "OK", "Hi"));
  EXPECT_THAT(desktop.windows.closed, IsEmpty());
}

TEST_F(PageAlert, WhoseFirstChildIsNotOkIsLeftAlone) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "Yes", "Sure?"));
  EXPECT_THAT(desktop.windows.closed, IsEmpty());
  EXPECT_FALSE(Timer2().enabled);
}

TEST_F(PageAlert, OfAnotherProgramIsLeftAlone) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Text editor", "OK", "Saved"));
  EXPECT_THAT(desktop.windows.closed, IsEmpty());
}

TEST_F(PageAlert, FieldsOfTheBoxSpeakThemselves) {
  Ready();
  desktop.hook->Activated.Raise(Alert("MICROSOFT INTERNET EXPLORER", "OK", "Hi"));
  Timer2().Fire();
  desktop.speech.calls.clear();
  desktop.Get<FakeTextBox>("Text1").SetFocus();
  desktop.Get<FakeCommandButton>("cmdOK").SetFocus();
  EXPECT_THAT(desktop.speech.Spoken(),
              ElementsAre("\\Pit=\\\\Spd=\\Hi", "\\Pit=\\\\Spd=\\OK button"));
}

TEST_F(PageAlert, F1SaysTheBoxAgain) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "OK", "Hi"));
  Timer2().Fire();
  desktop.speech.calls.clear();
  KeyEvent f1{kKeyF1, 0};
  desktop.Get<FakeForm>("MSAgent").KeyDown.Raise(f1);
  EXPECT_EQ(f1.KeyCode, 0);
  EXPECT_THAT(desktop.speech.Spoken(),
              ElementsAre("\\Pit=\\\\Spd=\\Hi (urgent)", "\\Pit=\\\\Spd=\\OK button"));
}

TEST_F(PageAlert, OkEmptiesTheTextAndHidesTheBox) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "OK", "Hi"));
  Timer2().Fire();
  desktop.Get<FakeCommandButton>("cmdOK").Click.Raise();
  EXPECT_EQ(desktop.Get<FakeTextBox>("Text1").text, "");
  EXPECT_FALSE(desktop.Get<FakeForm>("MSAgent").visible);
}

TEST_F(PageAlert, CloseBoxOnlyHidesTheBox) {
  Ready();
  desktop.hook->Activated.Raise(Alert("Microsoft Internet Explorer", "OK", "Hi"));
  Timer2().Fire();
  auto& form = desktop.Get<FakeForm>("MSAgent");
  bool unloaded = false;
  const auto connection = form.Unload.Connect([&] { unloaded = true; });
  form.Close(Form::UnloadMode::ControlMenu);
  EXPECT_FALSE(form.visible);
  EXPECT_FALSE(unloaded);
  form.Close(Form::UnloadMode::Code);
  EXPECT_TRUE(unloaded);
}

TEST(AgentFormLife, BoxIsModalOverTheWindowThatOwnsTheSpeech) {
  Program p;
  p.StartTalking();
  const auto alert = p.desktop.windows.Add("Microsoft Internet Explorer", "#32770");
  p.desktop.windows.Add("OK", "Button", alert);
  p.desktop.windows.Add("Hi", "Static", alert);
  p.desktop.hook->Activated.Raise(alert);
  for (FakeTimer* timer : p.desktop.timers) {
    if (timer->interval == 1000) timer->Fire();
  }
  EXPECT_TRUE(p.desktop.Get<FakeForm>("MSAgent").modal);
  EXPECT_EQ(p.desktop.Get<FakeForm>("MSAgent").owner, p.Inside().form.get());
}

TEST(AgentFormLife, ItemComesBackWhenTheCharacterCannotBeHad) {
  Program p;
  p.desktop.settings.Main("Speech") = "True";
  p.desktop.speech.load_error = "talker.acf was not found";
  p.Start();
  EXPECT_FALSE(p.Inside().menu.mnuSpeech(0).Enabled());
  for (FakeTimer* timer : p.desktop.timers) {
    if (timer->interval == 1) timer->Fire();
  }
  EXPECT_TRUE(p.Inside().menu.mnuSpeech(0).Enabled());
  EXPECT_NE(p.Service()->gMSAgent(), nullptr) << "speech counts as on until it is switched off";
}

TEST(AgentFormLife, UnloadingStopsSpeechAndHooks) {
  FakeDesktop desktop;
  ProcessSpeech speech{desktop};
  auto agent = std::make_unique<MSAgent>(desktop, speech);
  agent->Load_Init(nullptr);
  desktop.timers[0]->Fire();
  desktop.speech.agent->BecomeReady();
  std::vector<bool> switched;
  desktop.keyboard_hook->on_switch = [&](bool on) { switched.push_back(on); };
  desktop.message_hook->on_switch = [&](bool on) { switched.push_back(on); };
  desktop.hook->on_switch = [&](bool on) { switched.push_back(on); };
  agent.reset();
  EXPECT_THAT(desktop.speech.calls, ElementsAre("stop"));
  EXPECT_THAT(switched, ElementsAre(false, false, false));
  EXPECT_EQ(desktop.speech.agent, nullptr);
}

}  // namespace
}  // namespace corvane::tests
