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
