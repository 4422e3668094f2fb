#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

int NumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return error.Number();
  }
  return 0;
}

struct Automation : ::testing::Test {
  AutomationServer& Server() { return *p.desktop.automation.server; }
  std::unique_ptr<AutomationObject> Object() {
    return Server().CreateObject("Corvane.Application");
  }
  Program p;
};

TEST_F(Automation, IsReachableOnceTheProgramRunsAndUntilItsEnd) {
  EXPECT_EQ(p.desktop.automation.server, nullptr);
  p.Start();
  ASSERT_NE(p.desktop.automation.server, nullptr);
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.automation.server, nullptr);
}

TEST_F(Automation, AStartByAClientAnswersItWithTheErrorThatIsShown) {
  p.desktop.by_automation = true;
  p.Start();
  ASSERT_TRUE(p.desktop.automation.refused.has_value());
  EXPECT_EQ(p.desktop.automation.refused->Number(), -2147219967);
  EXPECT_EQ(p.desktop.automation.refused->Description(),
            "Application can't be started with Automation");
  EXPECT_EQ(p.desktop.automation.server, nullptr);
}

TEST_F(Automation, OpensAWindowThatSharesTheServiceAndSpeaksThroughIt) {
  p.StartTalking();
  const auto object = Object();
  object->StartBrowser();
  ASSERT_EQ(p.process.Forms().size(), 2U);
  EXPECT_EQ(p.Window(1)->MainApp(), p.Service());
  p.Spoken();
  object->Say("from another program", false);
  EXPECT_THAT(p.Spoken(), ElementsAre("from another program"));
}

TEST_F(Automation, ANewObjectMakesNoSecondServiceAndNoSecondMarker) {
  p.Start();
  const auto object = Object();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_EQ(p.desktop.Living("frmProcess"), 1U);
}

TEST_F(Automation, ReleasedObjectLeavesItsWindowOpen) {
  p.Start();
  Object()->StartBrowser();
  EXPECT_EQ(p.process.Forms().size(), 2U);
}

TEST_F(Automation, KillBrowserBeforeAWindowAndTwiceReportsNothing) {
  p.Start();
  const auto object = Object();
  object->KillBrowser();
  object->StartBrowser();
  object->KillBrowser();
  object->KillBrowser();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(Automation, SayWithoutAWindowIsTheCallersError) {
  p.Start();
  const auto object = Object();
  EXPECT_EQ(NumberOf([&] { object->Say("x", false); }), kErrObjectNotSet);
  object->StartBrowser();
  p.Window(1)->Unload();  // the user has closed it
  EXPECT_EQ(NumberOf([&] { object->Say("x", false); }), kErrObjectNotSet);
}

TEST_F(Automation, EachClientHasItsOwnWindow) {
  p.Start();
  const auto one = Object();
  const auto other = Object();
  one->StartBrowser();
  other->StartBrowser();
  const auto second = p.Window(1);
  other->KillBrowser();
  ASSERT_EQ(p.process.Forms().size(), 2U);
  EXPECT_EQ(p.Window(1), second);
}

TEST_F(Automation, UnknownClassIsRefused) {
  p.Start();
  EXPECT_EQ(NumberOf([&] { Server().CreateObject("Corvane.Window"); }), kErrCannotCreateObject);
}

TEST_F(Automation, ObjectOutlivesTheProgramsLastWindow) {
  p.Start();
  const auto object = Object();
  AutomationServer& server = Server();
  p.Window(0)->Unload();
  EXPECT_EQ(NumberOf([&] { object->StartBrowser(); }), kErrObjectNotSet);
  EXPECT_EQ(NumberOf([&] { server.CreateObject("Corvane.Application"); }), kErrObjectNotSet);
  EXPECT_THAT(p.process.Forms(), IsEmpty());
}

TEST_F(Automation, LastWindowMayBeKilledByItsClient) {
  p.Start();
  const auto object = Object();
  object->StartBrowser();
  p.Window(0)->Unload();
  object->KillBrowser();
  EXPECT_THAT(p.process.Forms(), IsEmpty());
  EXPECT_EQ(p.desktop.automation.server, nullptr);
}

TEST_F(Automation, ServiceSpeaksAndIsCountedForOtherPrograms) {
  p.Start();
  Server().Say("dropped", false);
  Server().SpeechInit(":1.7");
  p.MakeReady();
  p.Spoken();
  Server().Say("heard", true);
  EXPECT_THAT(p.Spoken(), ElementsAre("heard (urgent)"));
  Server().SpeechTerminate(":1.7");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
}

TEST_F(Automation, ACallerThatLeavesGivesItsClaimsBack) {
  p.Start();
  Server().SpeechInit(":1.7");
  Server().SpeechInit(":1.7");
  Server().SpeechInit(":1.8");
  Server().CallerLeft(":1.7");
  EXPECT_NE(p.Service()->gMSAgent(), nullptr) << "another caller's claim";
  Server().CallerLeft(":1.8");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
  Server().CallerLeft(":1.8");  // nothing is owed any more
  Server().SpeechInit(":1.9");
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
}

TEST_F(Automation, ACallerThatOwesNothingTakesNothingWithIt) {
  p.StartTalking();
  Server().SpeechInit(":1.7");
  Server().SpeechTerminate(":1.7");
  Server().CallerLeft(":1.7");
  EXPECT_NE(p.Service()->gMSAgent(), nullptr) << "the window's claim";
}

TEST_F(Automation, CallersLowerTheCountBelowZeroAsTheyLike) {
  p.Start();
  Server().SpeechTerminate(":1.7");
  Server().CallerLeft(":1.7");  // what it gave too much stays given
  Server().SpeechInit(":1.8");
  Server().SpeechInit(":1.8");
  ASSERT_NE(p.Service()->gMSAgent(), nullptr);
  Server().SpeechTerminate(":1.8");
  EXPECT_EQ(p.Service()->gMSAgent(), nullptr);
}

TEST_F(Automation, FailureOfTheServiceIsTheCallersAndNoBoxOfTheUsers) {
  p.Start();
  EXPECT_EQ(NumberOf([&] { Server().KeyBoardEcho(true); }), kErrObjectNotSet);
  for (int i = 0; i < 32768; ++i) Server().SpeechTerminate(":1.7");
  EXPECT_EQ(NumberOf([&] { Server().SpeechTerminate(":1.7"); }), kErrOverflow);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(Automation, KeyboardEchoIsSwitchedAndTold) {
  p.StartTalking();
  p.desktop.automation.echo.clear();
  Server().KeyBoardEcho(true);
  EXPECT_TRUE(p.Inside().menu.mnuSpeech(kSpeechKeyEcho).Checked());
  EXPECT_THAT(p.desktop.automation.echo, ElementsAre(true));
  Server().KeyBoardEcho(false);
  EXPECT_THAT(p.desktop.automation.echo, ElementsAre(true, false));
}

TEST_F(Automation, AddressOpensInAWindowOfItsOwn) {
  p.Start();
  p.Reading().Fire();
  Server().OpenWindow("https://example.org/");
  ASSERT_EQ(p.process.Forms().size(), 2U);
  p.Reading(1).Fire();
  EXPECT_EQ(p.Browser().calls.back(), "Navigate2 https://example.org/");
  EXPECT_EQ(p.Address().Text(), "https://example.org/");
}

TEST_F(Automation, FirstWindowCanStartWithAnAddress) {
  p.process.StartWith("https://example.org/");
  p.Start();
  p.Reading().Fire();
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 https://example.org/"));
  p.Inside().ctlWebBrowser1.cmdToolbar_Click(kHome);  // from now on the start page
  EXPECT_THAT(p.Browser().calls,
              ElementsAre("Navigate2 https://example.org/", "Navigate2 corvane://home/cv/"));
}

}  // namespace
}  // namespace corvane::tests
