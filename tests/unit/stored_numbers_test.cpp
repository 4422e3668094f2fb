#include "app/StoredNumbers.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// Both manners; the parameter is the stored `Manner`.
struct StoredNumber : ::testing::TestWithParam<const char*> {
  Program p;
  void SetUp() override { p.desktop.settings.Main("Manner") = GetParam(); }
  FakeForm& Form() { return p.desktop.Get<FakeForm>("frmCorvane"); }
};

TEST_P(StoredNumber, RateAndPitchThatNoMenuHasCountAsTheirDefaults) {
  p.desktop.settings.Main("Rate") = "-3";
  p.desktop.settings.Main("Pitch") = "5";
  p.StartTalking();
  EXPECT_EQ(p.Service()->gMSAgent()->Speed(), 150);
  EXPECT_EQ(p.Service()->gMSAgent()->Pitch(), 90);
  EXPECT_EQ(p.desktop.settings.Main("Rate"), "2");
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("The stored settings Rate, Pitch cannot be used. Their defaults hold."));
}

TEST_P(StoredNumber, ChoicesThatTheirMenuLacksCountAsTheirDefaultsAndAreToldOnce) {
  p.desktop.settings.Pane("SideBar") = "7";
  p.desktop.settings.Pane("Focus") = "1";  // the line between the choices
  p.desktop.settings.Pane("Home") = "-1";
  p.desktop.settings.Pane("TextHistory") = "40000";
  p.Start();
  const MainMenu& menu = p.Inside().menu;
  EXPECT_EQ(menu.mnuSideBarContent.FirstChecked(), 5);
  EXPECT_EQ(menu.mnuFocus.FirstChecked(), 3);
  EXPECT_EQ(menu.mnuHome.FirstChecked(), 3);
  EXPECT_EQ(menu.mnuTextHistory.FirstChecked(), 0);
  EXPECT_EQ(p.desktop.settings.Pane("SideBar"), "5");
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("The stored settings SideBar, TextHistory, Home, Focus cannot be used. "
                          "Their defaults hold."));
}

TEST_P(StoredNumber, PlacesThatNoScreenHasCountAsTheirDefaults) {
  p.desktop.settings.Main("MainLeft") = "1e30";
  p.desktop.settings.Main("MainTop") = "-1e39";
  p.desktop.settings.Main("MainWidth") = "0";
  p.desktop.settings.Main("MainHeight") = "-20";
  p.Start();
  EXPECT_EQ(Form().left, 500);
  EXPECT_EQ(Form().top, 350);
  EXPECT_EQ(Form().width, 8500);
  EXPECT_EQ(Form().height, 6500);
  EXPECT_EQ(p.desktop.boxes.shown.size(), 1U);
}

TEST_P(StoredNumber, AFarPlaceThatAScreenMayHaveIsTaken) {
  p.desktop.settings.Main("MainLeft") = "-480000";
  p.Start();
  EXPECT_EQ(Form().left, -480000);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_P(StoredNumber, IsToldOnceForAllWindows) {
  p.desktop.settings.Main("MainLeft") = "1e30";
  p.Start();
  p.Inside().menu.mnuFileItem(0).Click.Raise();
  ASSERT_EQ(p.process.Forms().size(), 2U);
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("The stored setting MainLeft cannot be used. Its default holds."));
}

TEST_P(StoredNumber, IsToldOnlyWhenTheTellingCanBeHeard) {
  p.desktop.settings.Main("Speech") = "True";
  p.desktop.settings.Main("Rate") = "9";
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
  p.MakeReady();
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("The stored setting Rate cannot be used. Its default holds."));
}

INSTANTIATE_TEST_SUITE_P(Manners, StoredNumber, ::testing::Values("0", "1"),
                         [](const auto& each) { return std::string("Manner") + each.param; });

TEST(StoredText, ThatIsNoNumberCostsTodaysSessionNothing) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.desktop.settings.Main("MainTop") = "rubbish";
  p.desktop.settings.Main("Pitch") = "";
  p.StartTalking();
  EXPECT_EQ(p.desktop.Get<FakeForm>("frmCorvane").top, 350);
  EXPECT_THAT(
      p.desktop.boxes.Texts(),
      ElementsAre("The stored settings MainTop, Pitch cannot be used. Their defaults hold."));
  p.Spoken();
  p.Address().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre(" Address Box"));
}

TEST(StoredText, ThatIsNoNumberStopsTheEstablishedLoad) {
  Program p;
  p.desktop.settings.Main("Rate") = "fast";
  p.desktop.settings.Main("StatusChange") = "True";
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("FormLoad Error: Type mismatch"));
  EXPECT_FALSE(p.Inside().menu.mnuSettings(kSettingsStatusFeedback).Checked());
}

TEST(StoredText, ThatIsNoChoiceOfTheMannerIsTold) {
  Program p;
  p.desktop.settings.Main("Manner") = "1";
  p.desktop.settings.Main("KeyWords") = "yes";
  p.Start();
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("The stored setting KeyWords cannot be used. Its default holds."));
}

}  // namespace
}  // namespace corvane::tests
