// What the pane reports when something under it fails: the texts are fixed, one
// prefix for each procedure that reports.
#include "browser/CaretEcho.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct PaneErrors : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Pane("Focus") = "0";
    p.StartTalking();
    p.Reading().Fire();
  }
  FakeElasticFrame& Frame(const std::string& name) { return p.desktop.Get<FakeElasticFrame>(name); }
  /// Exactly one box has come up, with the stop icon, no title and this text.
  void ExpectReported(const std::string& text) {
    EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre(text));
    for (const auto& box : p.desktop.boxes.shown) {
      EXPECT_EQ(box.icon, MessageBox::Icon::Critical);
      EXPECT_EQ(box.title, "");
    }
    p.desktop.boxes.shown.clear();
  }
};

TEST_F(PaneErrors, DownloadBegin) {
  p.Reading().refuses = true;
  p.Browser().Begin();
  ExpectReported("DownloadBegin Error: No more timers");
  EXPECT_THAT(p.Spoken(), ::testing::Not(::testing::Contains("Working...")));
}

TEST_F(PaneErrors, SplittersWhoseRatioCannotBeStored) {
  p.desktop.settings.refused = {"Splitter", "SplitterH"};
  Frame("ELABottom").width = 1000;
  Frame("ELASideBar").width = 100;
  Frame("ELABottom").ResizeChildren.Raise();
  ExpectReported("ELABottomResizeChildren Error: Device I/O error");
  Frame("ELARight").height = 1000;
  Frame("ctlText1").height = 900;
  Frame("ELARight").ResizeChildren.Raise();
  ExpectReported("ELARightResizeChildren Error: Device I/O error");
}

TEST_F(PaneErrors, RightColumnThatCannotBeLaidOut) {
  p.desktop.failing = "ctlText1";
  Frame("ELARight").RealignFrame.Raise();
  ExpectReported("ELARightRealignFrame Error: Device I/O error");
}

TEST_F(PaneErrors, SideBarThatCannotBeLaidOutIsNotReported) {
  p.desktop.failing = "ELASideBar";
  Frame("ELABottom").RealignFrame.Raise();
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(PaneErrors, TopStripThatCannotBeResized) {
  p.desktop.failing = "ELATop";
  p.Inside().ctlWebBrowser1.Inside().controls.ELAMain->RealignFrame.Raise();
  ExpectReported("UserControlResize Error: Device I/O error");
}

TEST_F(PaneErrors, FailedSearch) {
  p.desktop.failing = "brwWebBrowser";
  p.Address().text = "Search cats";
  p.Address().Press(kKeyReturn, 0, kKeyReturn);
  ExpectReported("GoSearch Error: Device I/O error");
}

TEST_F(PaneErrors, FailedNavigationIsNotReported) {
  p.desktop.failing = "brwWebBrowser";
  p.Address().text = "http://a/";
  p.Address().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(PaneErrors, LinkThatCannotBeFollowed) {
  p.Read(MakePage("http://a/", "A", "", {{"one", "http://one/"}}));
  p.desktop.failing = "brwWebBrowser";
  p.Links().index = 1;
  p.Links().DblClick.Raise();
  ExpectReported("cmbListLinksDblClick Error: Device I/O error");
}

TEST_F(PaneErrors, CaretThatCannotBeRead) {
  p.desktop.failing = "Text1";
  p.TextPane().Press(kKeyRight);
  ExpectReported("TextBoxPress Error: Device I/O error");
}

TEST_F(PaneErrors, ChoiceOutsideItsMenu) {
  PaneContext& pane = p.Inside().ctlWebBrowser1.Inside();
  p.Inside().ctlWebBrowser1.MenuToggleCheck(77, pane.menu.mnuHome);
  ExpectReported("MenuToggleCheck Error: Control array element '77' doesn't exist");
  EXPECT_EQ(pane.menu.mnuHome.FirstChecked(), -1) << "the others were unchecked before it failed";
}

TEST_F(PaneErrors, SpeechSinkThatFails) {
  struct Failing : ISpeechNotify {
    void ISpeechNotify_SayAs(const std::string&, Whose, Sign) override {}
    void ISpeechNotify_SayThrough(const std::string& text, Spoken) override { Say(text, false); }
    void ISpeechNotify_SayBehind(const std::string& text, Spoken) override { Say(text, false); }
    void ISpeechNotify_Say(const std::string&, const bool&) override {
      throw RunTimeError(kErrOverflow, "", "Overflow");
    }
  } sink;
  PaneContext pane(p.desktop);
  pane.announcer.SetSpeechNotify(&sink);
  pane.announcer.Say("x");
  ExpectReported("Say Error: Overflow");
}

/// What a pane that is being made reports while that control fails.
std::vector<std::string> ReportedWhileMaking(const std::string& failing) {
  FakeDesktop desktop;
  desktop.failing = failing;
  const ctlWebBrowser pane(desktop);
  return desktop.boxes.Texts();
}

TEST(PaneErrorsAtStart, FramesAndButtons) {
  EXPECT_THAT(ReportedWhileMaking("ELATree"), ElementsAre("SetElastics Error: Device I/O error"));
  EXPECT_THAT(ReportedWhileMaking("cmdToolbar3"),
              ElementsAre("PopulateButtons Error: Device I/O error"));
}

TEST_F(PaneErrors, AccessibilityViewThatCannotBeMade) {
  p.desktop.accessibility.refuses = true;
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarAccessibility);
  ExpectReported("RefreshAABrowser Error: No accessibility");
}

}  // namespace
}  // namespace corvane::tests
