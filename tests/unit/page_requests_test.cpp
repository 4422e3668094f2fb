// What the product does with what pages want: windows of their own, and words
// for the user.
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

TEST(PageRequests, APagesNewWindowSharesTheServiceAndIsAnnounced) {
  Program p;
  p.StartTalking();
  p.Spoken();
  p.Browser().NewWindow.Raise();
  ASSERT_EQ(p.process.Forms().size(), 2U);
  EXPECT_EQ(p.Window(1)->MainApp(), p.Service());
  EXPECT_THAT(p.Spoken(), ElementsAre("New window (urgent)"));
}

TEST(PageRequests, AWindowThatAPageOpenedStaysAtThatPage) {
  Program p;
  p.StartTalking();
  p.Browser().NewWindow.Raise();
  p.Browser().opened_by_page = true;
  p.Browser().busy = true;
  p.Reading(1).Fire();
  EXPECT_THAT(p.Browser().calls, IsEmpty());
}

TEST(PageRequests, TheWordsNewWindowAreNotCutOffByThePagesOwn) {
  Program p;
  p.StartTalking();
  p.Browser().NewWindow.Raise();
  p.desktop.speech.calls.clear();
  p.Browser().Begin();
  EXPECT_THAT(p.desktop.speech.Spoken(), ElementsAre(testing::EndsWith("Working...")));
  EXPECT_THAT(p.desktop.speech.calls, Not(testing::Contains(testing::StrEq("stop"))));
}

TEST(PageRequests, AWindowThatItsPageClosesGoesAndTheOthersStay) {
  Program p;
  p.StartTalking();
  p.Browser().NewWindow.Raise();
  p.Browser().WindowClosing.Raise();
  EXPECT_EQ(p.process.Forms().size(), 1U);
  EXPECT_NE(p.Service()->gMSAgent(), nullptr);
}

TEST(PageRequests, AnAnnouncementIsSpokenAndStandsInTheTextPane) {
  Program p;
  p.StartTalking();
  p.Spoken();
  p.Browser().Announcement.Raise("A pop-up window was blocked.");
  EXPECT_THAT(p.Spoken(), ElementsAre("A pop-up window was blocked."));
  EXPECT_THAT(p.TextPane().Text(), testing::HasSubstr("A pop-up window was blocked.\n"));
}

}  // namespace
}  // namespace corvane::tests
