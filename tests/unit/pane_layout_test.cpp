#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct PaneLayoutTest : ::testing::Test {
  Program p;

  void Start() { p.Start(); }
  FakeElasticFrame& Frame(const std::string& name) { return p.desktop.Get<FakeElasticFrame>(name); }
  std::vector<std::string> BandCaptions() {
    std::vector<std::string> captions;
    for (const auto& band : p.desktop.rebar->bands) captions.push_back(band.text);
    return captions;
  }
  void DragSideBarTo(float ratio) {
    Frame("ELABottom").width = 10000;
    Frame("ELASideBar").width = ratio * 10000;
    Frame("ELABottom").ResizeChildren.Raise();
  }
};

TEST_F(PaneLayoutTest, SideBarTakesItsRatioOfTheWidth) {
  p.desktop.settings.Pane("Splitter") = "0.3";
  Start();
  Frame("ELABottom").width = 10000;
  Frame("ELABottom").RealignFrame.Raise();
  EXPECT_EQ(Frame("ELASideBar").width, 3000);
  EXPECT_EQ(Frame("ELARight").width, 7000);
}

TEST_F(PaneLayoutTest, TextPaneTakesItsRatioOfTheHeight) {
  Start();
  Frame("ELARight").height = 8000;
  Frame("ELARight").RealignFrame.Raise();
  EXPECT_EQ(Frame("ctlText1").height, 2000);
  EXPECT_EQ(Frame("ELABrowser").height, 6000);
}

TEST_F(PaneLayoutTest, DragWithinAHundredthIsNotWritten) {
  p.desktop.settings.Pane("Splitter") = "0.3";
  Start();
  DragSideBarTo(0.304F);
  EXPECT_EQ(p.desktop.settings.Pane("Splitter"), "0.3");
  DragSideBarTo(0.31F);
  EXPECT_EQ(p.desktop.settings.Pane("Splitter"), "0.31");
}

TEST_F(PaneLayoutTest, DragOfTheTextPaneIsWrittenLikewise) {
  p.desktop.settings.Pane("SplitterH") = "0.25";
  Start();
  Frame("ELARight").height = 1000;
  Frame("ctlText1").height = 254;
  Frame("ELARight").ResizeChildren.Raise();
  EXPECT_EQ(p.desktop.settings.Pane("SplitterH"), "0.25");
  Frame("ctlText1").height = 500;
  Frame("ELARight").ResizeChildren.Raise();
  EXPECT_EQ(p.desktop.settings.Pane("SplitterH"), "0.5");
}

TEST_F(PaneLayoutTest, SplittersSayTheirNamesAndShares) {
  p.StartTalking();
  p.Spoken();
  Frame("ELABottom").SplitterFocus.Raise();
  Frame("ELABottom").SplitterStep.Raise(51);
  Frame("ELARight").SplitterFocus.Raise();
  Frame("ELARight").SplitterStep.Raise(74);
  EXPECT_THAT(p.Spoken(), ElementsAre("Splitter between left and right", "51 percent",
                                      "Splitter between top and bottom", "74 percent"));
}

struct FocusKept : PaneLayoutTest {
  void SetUp() override {
    p.StartTalking();
    p.Address().text = "http://a/";
    p.Spoken();
  }
  ctlWebBrowser& Pane() { return p.Inside().ctlWebBrowser1; }
};

TEST_F(FocusKept, TheAddressBoxIsSaidWhereTheButtonsGoAndCome) {
  p.Address().SetFocus();
  for (const bool hide : {true, false}) {
    p.Spoken();
    p.desktop.focus = "nothing";
    Pane().HideButtonToolBar(hide);
    EXPECT_EQ(p.desktop.focus, "cboAddress");
    EXPECT_THAT(p.Spoken(), ElementsAre(::testing::EndsWith(" Address Box")));
  }
}

TEST_F(FocusKept, TheNextAreaIsSaidWhereTheUsersIsHidden) {
  p.desktop.Get<FakeCommandButton>("cmdToolbar3").SetFocus();
  Pane().HideButtonToolBar(true);
  EXPECT_EQ(p.desktop.focus, "TreeView1");
  p.Spoken();
  Pane().mnuSideBarContent_Click(kSideBarNone);
  EXPECT_EQ(p.desktop.focus, "brwWebBrowser");
  EXPECT_THAT(p.Spoken(), ElementsAre("WebBrowser"));
}

TEST_F(FocusKept, TheLinksListGoesWithTheSideBar) {
  p.Links().SetFocus();
  Pane().mnuSideBarContent_Click(kSideBarNone);
  EXPECT_EQ(p.desktop.focus, "brwWebBrowser");
}

TEST_F(FocusKept, WhoIsElsewhereStaysThereAndHearsNothing) {
  p.TextPane().SetFocus();
  p.Spoken();
  Pane().HideButtonToolBar(true);
  Pane().mnuSideBarContent_Click(kSideBarNone);
  EXPECT_EQ(p.desktop.focus, "Text1");
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(PaneLayoutTest, HiddenSideBarLeavesTheLayout) {
  p.desktop.settings.Pane("SideBar") = "0";
  Start();
  EXPECT_EQ(Frame("ELASideBar").align, ElasticFrame::Align::None);
  EXPECT_FALSE(Frame("ELABottom").splitter);
  DragSideBarTo(0.9F);
  EXPECT_FALSE(p.desktop.settings.Has("pnlBrowser", "Splitter"));
  p.Inside().menu.mnuSideBarContent(2).Click.Raise();
  EXPECT_EQ(Frame("ELASideBar").align, ElasticFrame::Align::Fill);
  EXPECT_TRUE(Frame("ELABottom").splitter);
  EXPECT_EQ(Frame("ELASideBar").width, 0.5F * Frame("ELABottom").width);
}

TEST_F(PaneLayoutTest, HidingAndShowingTheButtonsTwiceLeavesTwoBandsInOrder) {
  Start();
  ctlWebBrowser& pane = p.Inside().ctlWebBrowser1;
  EXPECT_THAT(BandCaptions(), ElementsAre("", "Address"));
  for (int i = 0; i < 2; ++i) {
    pane.HideButtonToolBar(true);
    EXPECT_THAT(BandCaptions(), ElementsAre("Address"));
    EXPECT_FALSE(Frame("ButtonContainer").visible);
    pane.HideButtonToolBar(false);
    EXPECT_THAT(BandCaptions(), ElementsAre("", "Address"));
    EXPECT_TRUE(Frame("ButtonContainer").visible);
  }
  EXPECT_EQ(p.desktop.windows.locks.size() % 2, 0U);
  EXPECT_FALSE(p.desktop.windows.locks.back().second);
}

TEST_F(PaneLayoutTest, TopStripIsAsHighAsTheRebar) {
  Start();
  Frame("ELAMain").RealignFrame.Raise();
  // one row of 40 pixels and the border of 8, at 15 twips a pixel
  EXPECT_EQ(p.desktop.Get<FakeElasticFrame>("ELATop").height, 48 * 15);
}

TEST_F(PaneLayoutTest, EachButtonGetsThePictureOfItsPosition) {
  Start();
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(p.desktop.Get<FakeCommandButton>("cmdToolbar" + std::to_string(i)).pictures.at(0),
              i + 1);
  }
}

TEST_F(PaneLayoutTest, ControlsHaveNamesForOtherReaders) {
  Start();
  EXPECT_EQ(p.Address().accessible_name, "Address");
  EXPECT_EQ(p.Links().accessible_name, "Links");
  EXPECT_EQ(p.TextPane().accessible_name, "Text");
  EXPECT_EQ(p.Tree().accessible_name, "Sidebar");
}

TEST_F(PaneLayoutTest, AddressListStartsWithTwoAddresses) {
  Start();
  EXPECT_THAT(p.Address().list, ElementsAre("corvane://home/cv/", "https://www.mozilla.org/"));
}

TEST_F(PaneLayoutTest, ShutDownSavesTheAddressAndTakesTheRebarAway) {
  Start();
  p.Browser().busy = false;
  p.Read(MakePage("http://example.org/", "Example", ""));
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.settings.Pane("StartingAddress"), "http://example.org/");
  EXPECT_EQ(p.desktop.rebar, nullptr);
}

TEST_F(PaneLayoutTest, TickStartsWithTheFirstShow) {
  Start();
  EXPECT_TRUE(p.Reading().enabled);
  EXPECT_EQ(p.Reading().interval, 600);
}

}  // namespace
}  // namespace corvane::tests
