#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(Startup, FirstThreadMarksTheProcessAndOpensAWindow) {
  Program p;
  p.Start();
  EXPECT_NE(p.desktop.windows.FindWindow("ApartmentProcessWindow1234"), 0U);
  ASSERT_EQ(p.process.Forms().size(), 1U);
  EXPECT_TRUE(p.desktop.Get<FakeForm>("frmCorvane").visible);
  EXPECT_FALSE(p.desktop.Get<FakeForm>("frmProcess").visible);
}

TEST(Startup, LaterThreadFindsTheMarkerAndCreatesNothing) {
  Program p;
  p.Start();
  p.process.Main();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_EQ(p.desktop.Living("frmProcess"), 1U);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(Startup, MarkerNamesTheProcessOfTheFirstWindow) {
  Program p;
  p.desktop.windows.process_id = 77;
  p.desktop.windows.Add("ApartmentProcessWindow78", "Form");  // another process of the program
  p.Start();
  EXPECT_NE(p.desktop.windows.FindWindow("ApartmentProcessWindow77"), 0U);
  EXPECT_EQ(p.process.Forms().size(), 1U);
}

TEST(Startup, LargestProcessIdIsWrittenWithoutASign) {
  Program p;
  p.desktop.windows.process_id = 4294967295U;
  p.Start();
  EXPECT_NE(p.desktop.windows.FindWindow("ApartmentProcessWindow4294967295"), 0U);
}

TEST(Startup, WithoutAnyWindowOnTheThreadItReportsAnInternalError) {
  Program p;
  p.desktop.windows.first_thread_window = 0;
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("Main Error: Internal error starting thread"));
  EXPECT_EQ(p.desktop.boxes.shown[0].icon, MessageBox::Icon::Critical);
  EXPECT_EQ(p.desktop.boxes.shown[0].title, "");
  EXPECT_THAT(p.process.Forms(), IsEmpty());
}

TEST(Startup, ByAutomationWithoutARunningInstanceIsRefused) {
  Program p;
  p.desktop.by_automation = true;
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("Main Error: Application can't be started with Automation"));
  EXPECT_EQ(p.desktop.boxes.shown[0].icon, MessageBox::Icon::Critical);
  EXPECT_EQ(p.desktop.boxes.shown[0].title, "");
  EXPECT_THAT(p.process.Forms(), IsEmpty());
  EXPECT_EQ(p.desktop.Living("frmProcess"), 0U);
}

TEST(Startup, AWindowThatCannotBeMadeLeavesNothingThatRunsOn) {
  Program p;
  p.desktop.failing = "frmCorvane";
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("Main Error: Device I/O error"));
  EXPECT_THAT(p.process.Forms(), IsEmpty());
  EXPECT_EQ(p.desktop.Living("frmProcess"), 0U);
}

TEST(Startup, ByAutomationIntoARunningProcessIsAllowed) {
  Program p;
  p.Start();
  p.desktop.by_automation = true;
  p.process.Main();
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(Application, KillBrowserWithoutAWindowOrTwiceDoesNothing) {
  Program p;
  p.Start();
  Application application(p.process);
  application.KillBrowser();
  application.StartBrowser(p.Service());
  EXPECT_EQ(p.process.Forms().size(), 2U);
  application.KillBrowser();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  application.KillBrowser();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(Application, LettingGoLeavesTheWindowOpenAndSpeaking) {
  Program p;
  p.StartTalking();
  {
    Application application(p.process);
    application.StartBrowser(p.Service());
  }
  ASSERT_EQ(p.process.Forms().size(), 2U);
  p.Spoken();
  // "Speech" is stored as on, so the second window's own item is checked too.
  ISpeechNotify& window = *p.Window(1);
  window.Say("still here", false);
  EXPECT_THAT(p.Spoken(), ElementsAre("still here"));
}

TEST(Application, SayGoesStraightToTheService) {
  Program p;
  p.StartTalking();
  Application application(p.process);
  application.StartBrowser(p.Service());
  p.Spoken();
  application.Say("from outside", true);
  EXPECT_THAT(p.Spoken(), ElementsAre("from outside (urgent)"));
}

TEST(Application, SayWhileSpeechIsOffIsDropped) {
  Program p;
  p.Start();
  Application application(p.process);
  application.StartBrowser(p.Service());
  application.Say("nobody hears", true);
  EXPECT_THAT(p.desktop.speech.calls, IsEmpty());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(Application, SecondBrowserTakesTheFirstOnesPlaceAndLeavesItOpen) {
  Program p;
  p.Start();
  Application application(p.process);
  application.StartBrowser(p.Service());
  application.StartBrowser(p.Service());
  ASSERT_EQ(p.process.Forms().size(), 3U);
  const auto first = p.Window(1);
  application.KillBrowser();
  ASSERT_EQ(p.process.Forms().size(), 2U);
  EXPECT_EQ(p.Window(1), first);
}

TEST(Application, SayWithoutAWindowFailsToTheCaller) {
  Program p;
  p.Start();
  Application application(p.process);
  EXPECT_THROW(application.Say("x", false), RunTimeError);
}

TEST(Shutdown, LastWindowTakesServiceAndMarkerWithIt) {
  Program p;
  p.Start();
  const std::weak_ptr<MainApp> service = p.Service();
  p.Window(0)->Unload();
  EXPECT_TRUE(service.expired());
  EXPECT_EQ(p.desktop.Living("frmProcess"), 0U);
  EXPECT_EQ(p.desktop.Living("frmCorvane"), 0U);
  EXPECT_THAT(p.process.Forms(), IsEmpty());
}

TEST(Shutdown, TheEndOfTheSessionClosesAllWindowsWithoutAQuestionAndKeepsWhatTheyAre) {
  Program p;
  p.Start();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  p.Browser().Begin();
  p.Browser().Finish(MakePage("http://a/", "A", ""));
  p.Reading(1).Fire();
  p.Browser().may_close = false;  // its page would like to ask
  p.desktop.Get<FakeForm>("frmCorvane").left = 1234;
  p.desktop.Ending.Raise();
  EXPECT_THAT(p.process.Forms(), IsEmpty());
  EXPECT_EQ(p.desktop.Living("frmCorvane"), 0U);
  EXPECT_EQ(p.desktop.Living("frmProcess"), 0U);
  EXPECT_EQ(p.desktop.settings.Main("MainLeft"), "1234");
  EXPECT_EQ(p.desktop.settings.Pane("StartingAddress"), "http://a/");
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(Shutdown, ClosingTheFirstWindowKeepsTheServiceForTheOthers) {
  Program p;
  p.StartTalking();
  Application application(p.process);
  application.StartBrowser(p.Service());
  const std::weak_ptr<frmCorvane> first = p.Window(0);
  p.Window(0)->Unload();
  EXPECT_TRUE(first.expired());  // the service has forgotten it too
  EXPECT_EQ(p.desktop.Living("frmProcess"), 1U);
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
}

}  // namespace
}  // namespace corvane::tests
