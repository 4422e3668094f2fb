#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(SpeechService, OneOfTwoWindowsSwitchingOffKeepsTheCharacter) {
  Program p;
  p.Start();
  auto service = p.Service();
  service->SpeechInit();
  service->SpeechInit();
  service->SpeechTerminate();
  EXPECT_NE(service->gMSAgent(), nullptr);
  service->SpeechTerminate();
  EXPECT_EQ(service->gMSAgent(), nullptr);
}

TEST(SpeechService, MoreTerminatesThanInitsOnlyEndAtExactlyZero) {
  Program p;
  p.Start();
  auto service = p.Service();
  service->SpeechTerminate();
  service->SpeechTerminate();  // count -2
  service->SpeechInit();       // -1: creates the form
  MSAgent* form = service->gMSAgent();
  ASSERT_NE(form, nullptr);
  service->SpeechInit();  // 0
  EXPECT_EQ(service->gMSAgent(), form);
  service->SpeechInit();  // 1
  EXPECT_EQ(service->gMSAgent(), form);
  service->SpeechTerminate();  // exactly 0
  EXPECT_EQ(service->gMSAgent(), nullptr);
}

TEST(SpeechService, SayWhileSpeechIsOffIsDropped) {
  Program p;
  p.Start();
  p.Service()->Say("nobody hears", true);
  EXPECT_THAT(p.desktop.speech.calls, IsEmpty());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST(SpeechService, KeyBoardEchoWithSpeechOffShowsItsErrorAndTellsNobody) {
  Program p;
  p.Start();
  int told = 0;
  const auto connection = p.Service()->KeyboardEchoStatus.Connect([&](bool) { ++told; });
  p.Service()->KeyBoardEcho(true);
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("KeyBoardEcho Error: Object variable or With block variable not set"));
  EXPECT_EQ(told, 0);
}

TEST(SpeechService, CountOverflowIsReportedAndTheCountStays) {
  Program p;
  p.Start();
  auto service = p.Service();
  for (int i = 0; i < 32767; ++i) service->SpeechInit();
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
  service->SpeechInit();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("SpeechInit Error: Overflow"));
}

TEST(SpeechService, CountBelowItsRangeIsReported) {
  Program p;
  p.Start();
  auto service = p.Service();
  for (int i = 0; i < 32768; ++i) service->SpeechTerminate();
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
  service->SpeechTerminate();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("SpeechTerminate Error: Overflow"));
  EXPECT_EQ(p.desktop.boxes.shown[0].icon, MessageBox::Icon::Critical);
  EXPECT_EQ(p.desktop.boxes.shown[0].title, "");
}

TEST(SpeechService, FormThatCannotBeMadeLeavesCountAndFlagSet) {
  Program p;
  p.Start();
  auto service = p.Service();
  p.desktop.speech.server_error = "No agent server";
  service->SpeechInit();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("SpeechInit Error: No agent server"));
  EXPECT_EQ(service->gMSAgent(), nullptr);
  service->Say("dropped", true);  // the flag alone is not enough
  p.desktop.speech.server_error.clear();
  service->SpeechInit();  // counts as on: no second try
  EXPECT_EQ(service->gMSAgent(), nullptr);
  service->SpeechTerminate();
  service->SpeechTerminate();
  service->SpeechInit();
  EXPECT_NE(service->gMSAgent(), nullptr);
}

TEST(SpeechService, EveryListenerIsToldOfTheEcho) {
  Program p;
  p.Start();
  auto service = p.Service();
  service->SpeechInit();
  std::vector<bool> told;
  const auto one = service->KeyboardEchoStatus.Connect([&](bool on) { told.push_back(on); });
  const auto two = service->KeyboardEchoStatus.Connect([&](bool on) { told.push_back(on); });
  service->KeyBoardEcho(true);
  EXPECT_TRUE(service->gMSAgent()->blnKeyboardEcho);
  service->KeyBoardEcho(false);
  EXPECT_FALSE(service->gMSAgent()->blnKeyboardEcho);
  EXPECT_THAT(told, ElementsAre(true, true, false, false));
}

TEST(SpeechService, SpeechLoadsAlsoAfterTheFirstWindowIsGone) {
  Program p;
  p.Start();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Window(0)->Unload();
  auto service = p.Service();
  service->SpeechInit();
  service->SpeechInit();
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
  p.MakeReady();
  service->Say("here", false);
  EXPECT_THAT(p.Spoken(), ElementsAre("here"));
}

}  // namespace
}  // namespace corvane::tests
