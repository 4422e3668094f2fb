#include "app/Version.h"
#include "app/frmAbout.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct AboutBox : testing::Test {
  Program p;

  void Open() { p.Inside().menu.mnuHelp(1).Click.Raise(); }
  FakeTextBox& Text(int number) {
    return p.desktop.Get<FakeTextBox>("Text" + std::to_string(number));
  }
  FakeCommandButton& Ok() { return p.desktop.Get<FakeCommandButton>("OK"); }
  FakeForm& Box() { return p.desktop.Get<FakeForm>("frmAbout"); }
  bool IsOpen() const { return p.desktop.Living("frmAbout") != 0; }
};

TEST_F(AboutBox, StandsOverItsWindowWithItsCaption) {
  p.Start();
  Open();
  EXPECT_EQ(Box().Caption(), "About Corvane 2000");
  EXPECT_TRUE(Box().modal);
  EXPECT_EQ(Box().owner, p.Inside().form.get());
  EXPECT_EQ(p.desktop.focus, "OK");
}

TEST_F(AboutBox, F1ReadsTheWholeBoxAgain) {
  p.StartTalking();
  p.Spoken();
  Open();
  const auto first = p.Spoken();
  ASSERT_EQ(first.size(), 1U);
  KeyEvent f1{kKeyF1, 0};
  Box().KeyDown.Raise(f1);
  EXPECT_EQ(f1.KeyCode, 0);
  EXPECT_EQ(p.Spoken(), first);
}

TEST_F(AboutBox, HasTheProgramsIconAndALineAboveTheButton) {
  p.Start();
  Open();
  EXPECT_EQ(p.desktop.Get<FakeImage>("Image1").picture, Image::Picture::Program);
  const auto& top = p.desktop.Get<FakeElasticFrame>("ELATop");
  EXPECT_THAT(top.children, ElementsAre(&p.desktop.Get<FakeImage>("Image1"),
                                        &p.desktop.Get<FakeElasticFrame>("ELATexts")));
  EXPECT_THAT(p.desktop.Get<FakeElasticFrame>("ELAAbout").children,
              ElementsAre(&top, &p.desktop.Get<FakeLine>("Line1"), &Ok()));
}

TEST_F(AboutBox, FieldsFollowEachOtherInTheOrderOfTheirNumbers) {
  p.Start();
  Open();
  EXPECT_THAT(p.desktop.Get<FakeElasticFrame>("ELATexts").children,
              ElementsAre(&Text(1), &Text(2), &Text(3), &Text(4), &Text(5)));
}

TEST_F(AboutBox, LetsGoOfTheServiceWhenItIsClosed) {
  p.Start();
  const auto service = p.Service();
  const auto before = service.use_count();
  Open();
  EXPECT_EQ(service.use_count(), before + 1);
  Ok().Click.Raise();
  EXPECT_EQ(service.use_count(), before);
  Open();
  Box().Close(Form::UnloadMode::ControlMenu);
  EXPECT_EQ(service.use_count(), before);
}

TEST_F(AboutBox, ThirdLineEndsInTheVersionWithoutASecondPoint) {
  p.Start();
  Open();
  EXPECT_EQ(Text(1).text, "Corvane 2000");
  EXPECT_EQ(Text(3).text, "For Microsoft Windows 9x/NT/2000, " + std::to_string(kVersionMajor) +
                              "." + std::to_string(kVersionMinor) +
                              std::to_string(kVersionRevision));
  for (int number : {2, 4, 5}) EXPECT_FALSE(Text(number).text.empty()) << number;
}

TEST_F(AboutBox, VersionIsThatOfTheProject) {
  EXPECT_EQ(std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
                std::to_string(kVersionRevision),
            CORVANE_PROJECT_VERSION);
}

TEST_F(AboutBox, ThirdLineNamesTheDesktopOfToday) {
  p.desktop.settings.Main("Manner") = "1";
  p.Start();
  Open();
  EXPECT_EQ(Text(3).text, "For Testing, version " + std::to_string(kVersionMajor) + "." +
                              std::to_string(kVersionMinor) + "." +
                              std::to_string(kVersionRevision));
}

TEST_F(AboutBox, OkReadsTheWholeBoxOnceThenOnlyItself) {
  p.StartTalking();
  p.Spoken();
  Open();
  const std::string all = Text(1).text + "\r\n" + Text(2).text + "\r\n" + Text(3).text + "\r\n" +
                          Text(4).text + "\r\n" + Text(5).text + "O.K. button (urgent)";
  EXPECT_THAT(p.Spoken(), ElementsAre(all));
  Text(1).SetFocus();
  Ok().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("Corvane 2000", "OK"));
}

TEST_F(AboutBox, EveryFieldSpeaksItself) {
  p.StartTalking();
  Open();
  p.Spoken();
  for (int number = 1; number <= 5; ++number) {
    Text(number).SetFocus();
    EXPECT_THAT(p.Spoken(), ElementsAre(Text(number).text));
  }
}

TEST_F(AboutBox, IsReadAgainWhenItIsOpenedAgain) {
  p.StartTalking();
  Open();
  Ok().Click.Raise();
  p.Spoken();
  Open();
  EXPECT_THAT(p.Spoken(), ElementsAre(testing::EndsWith("O.K. button (urgent)")));
}

TEST_F(AboutBox, IsSilentAndReportsNothingWhileTheServiceHasSpeechOff) {
  p.Start();
  Open();
  for (int number = 1; number <= 5; ++number) Text(number).SetFocus();
  Ok().SetFocus();
  EXPECT_THAT(p.desktop.speech.calls, IsEmpty());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(AboutBox, SpeaksWhenOnlyAnotherWindowHasSpeechOn) {
  p.StartTalking();
  Application other(p.process);
  other.StartBrowser(p.Service());
  p.Inside(1).menu.mnuSpeech(0).SetChecked(false);
  p.Spoken();
  p.Inside(1).menu.mnuHelp(1).Click.Raise();
  EXPECT_THAT(p.Spoken(), ElementsAre(testing::EndsWith("O.K. button (urgent)")));
}

TEST_F(AboutBox, OkEnterAndTheCloseButtonUnloadIt) {
  p.Start();
  Open();
  Ok().Click.Raise();
  EXPECT_FALSE(IsOpen());
  Open();
  Text(4).Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_FALSE(IsOpen());
  Open();
  Box().Close(Form::UnloadMode::ControlMenu);
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(AboutBox, IsOpenOnlyOnce) {
  p.Start();
  Open();
  Open();
  EXPECT_EQ(p.desktop.Living("frmAbout"), 1U);
}

TEST_F(AboutBox, GoesWithItsWindow) {
  p.Start();
  Open();
  p.Window(0)->Unload();
  EXPECT_FALSE(IsOpen());
}

TEST(AboutBoxAlone, ReportsAFailureOfTheOkButtonOnly) {
  FakeDesktop desktop;
  frmAbout box(desktop);  // without a service
  desktop.Get<FakeCommandButton>("OK").SetFocus();
  ASSERT_EQ(desktop.boxes.shown.size(), 1U);
  EXPECT_EQ(desktop.boxes.shown[0].text,
            "OKGotFocus Error: Object variable or With block variable not set");
  EXPECT_EQ(desktop.boxes.shown[0].icon, MessageBox::Icon::Critical);
  EXPECT_THROW(desktop.Get<FakeTextBox>("Text1").SetFocus(), RunTimeError);
  EXPECT_EQ(desktop.boxes.shown.size(), 1U);
}

TEST(AboutBoxAlone, AReadingThatFailedIsNotTriedAgain) {
  Program p;
  p.StartTalking();
  frmAbout box(p.desktop);
  auto& ok = p.desktop.Get<FakeCommandButton>("OK");
  ok.SetFocus();  // without a service
  ASSERT_EQ(p.desktop.boxes.shown.size(), 1U);
  box.CallBackInit(p.Service());
  p.Spoken();
  ok.SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("OK"));
}

}  // namespace
}  // namespace corvane::tests
