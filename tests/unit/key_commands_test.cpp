#include "app/KeyCommands.h"

#include <fstream>
#include <sstream>

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct Keys : testing::Test {
  Program p;
  void SetUp() override { p.Start(); }

  /// True when the key was used up.
  bool Press(int code, int shift) {
    KeyEvent key{code, shift};
    p.Inside().form->KeyDown.Raise(key);
    return key.KeyCode == 0;
  }
  std::string Calls() { return p.Browser().calls.empty() ? "" : p.Browser().calls.back(); }
};

TEST_F(Keys, GoBackAndForwardAndLoadAgain) {
  EXPECT_TRUE(Press(kKeyLeft, kAltMask));
  EXPECT_EQ(Calls(), "GoBack");
  EXPECT_TRUE(Press(kKeyRight, kAltMask));
  EXPECT_EQ(Calls(), "GoForward");
  EXPECT_TRUE(Press(kKeyF5, 0));
  EXPECT_EQ(Calls(), "Refresh");
}

TEST_F(Keys, CtrlPPrintsAndCtrlLGoesToTheAddressBox) {
  EXPECT_TRUE(Press('P', kCtrlMask));
  EXPECT_EQ(Calls(), "ExecWB 6 1");
  EXPECT_TRUE(Press('L', kCtrlMask));
  EXPECT_EQ(p.desktop.focus, "cboAddress");
}

TEST_F(Keys, CtrlOAsksForAFile) {
  EXPECT_TRUE(Press('O', kCtrlMask));
  EXPECT_TRUE(p.desktop.file_dialogs.shown);
}

TEST_F(Keys, CtrlJShowsTheDownloads) {
  EXPECT_TRUE(Press('J', kCtrlMask));
  EXPECT_EQ(p.desktop.downloads, 1);
}

TEST_F(Keys, CtrlNOpensAWindowAndCtrlWClosesThisOne) {
  EXPECT_TRUE(Press('N', kCtrlMask));
  EXPECT_EQ(p.process.Forms().size(), 2U);
  const auto first = p.Window(0);
  EXPECT_TRUE(Press('W', kCtrlMask));
  ASSERT_EQ(p.process.Forms().size(), 1U);
  EXPECT_NE(p.Window(0), first);
}

TEST_F(Keys, FindZoomAndReadAgainGoToThePage) {
  const std::vector<std::pair<int, int>> keys = {
      {'F', kCtrlMask}, {114, 0},         {114, kShiftMask}, {187, kCtrlMask}, {189, kCtrlMask},
      {'0', kCtrlMask}, {107, kCtrlMask}, {109, kCtrlMask},  {kKeyF9, 0}};
  std::vector<std::string> calls;
  for (const auto& [code, shift] : keys) {
    EXPECT_TRUE(Press(code, shift));
    calls.push_back(Calls());
  }
  EXPECT_THAT(calls,
              ElementsAre("Do 0", "Do 1", "Do 2", "Do 3", "Do 4", "Do 5", "Do 3", "Do 4", "Do 6"));
}

TEST_F(Keys, OthersAndOtherShiftStatesGoToTheControl) {
  p.Browser().calls.clear();
  EXPECT_FALSE(Press(kKeyLeft, 0));
  EXPECT_FALSE(Press(kKeyLeft, kAltMask | kShiftMask));
  EXPECT_FALSE(Press(kKeyF5, kCtrlMask));
  EXPECT_FALSE(Press('P', 0));
  EXPECT_FALSE(Press('A', kCtrlMask));
  EXPECT_THAT(p.Browser().calls, IsEmpty());
}

TEST_F(Keys, EachIsThereOnce) {
  std::vector<std::pair<int, int>> seen;
  for (const KeyCommand& command : AllKeyCommands()) {
    const std::pair key(command.KeyCode, command.Shift);
    EXPECT_THAT(seen, testing::Not(testing::Contains(key))) << command.keys;
    seen.push_back(key);
  }
}

TEST_F(Keys, F6GoesRoundTheAreas) {
  p.Address().SetFocus();
  std::vector<std::string> way;
  for (int i = 0; i < 6; ++i) {
    EXPECT_TRUE(Press(kKeyF6, 0));
    way.push_back(p.desktop.focus);
  }
  EXPECT_THAT(way, ElementsAre("cmdToolbar0", "TreeView1", "cmbListLinks", "brwWebBrowser", "Text1",
                               "cboAddress"));
  EXPECT_TRUE(Press(kKeyF6, kShiftMask));
  EXPECT_EQ(p.desktop.focus, "Text1");
}

TEST_F(Keys, F6GoesOnFromWhereTheUserIs) {
  p.Links().SetFocus();
  Press(kKeyF6, kShiftMask);
  EXPECT_EQ(p.desktop.focus, "TreeView1");
  p.desktop.Get<FakeCommandButton>("cmdToolbar3").SetFocus();
  Press(kKeyF6, 0);
  EXPECT_EQ(p.desktop.focus, "TreeView1");
}

TEST_F(Keys, F6LeadsIntoADialogOfThePageFirstAndThenGoesOn) {
  p.Address().SetFocus();
  p.Browser().dialog_waits = true;
  Press(kKeyF6, 0);
  EXPECT_EQ(p.desktop.focus, "cboAddress") << "the page takes the focus itself";
  Press(kKeyF6, 0);
  EXPECT_EQ(p.desktop.focus, "cmdToolbar0");
}

TEST_F(Keys, ShiftF6GoesRoundTheAreasWhateverDialogThePageHas) {
  p.Address().SetFocus();
  p.Browser().dialog_waits = true;
  Press(kKeyF6, kShiftMask);
  EXPECT_EQ(p.desktop.focus, "Text1");
}

TEST_F(Keys, F6GoesOnWhereTheDialogOfThePageHasClosed) {
  p.Address().SetFocus();
  p.Browser().dialog_waits = true;
  Press(kKeyF6, 0);
  p.Browser().dialog_gone();
  EXPECT_EQ(p.desktop.focus, "cmdToolbar0");
}

TEST_F(Keys, F8GoesRoundTheSplitters) {
  p.Address().SetFocus();
  EXPECT_TRUE(Press(kKeyF8, 0));
  EXPECT_TRUE(Press(kKeyF8, kShiftMask));
  using Way = ElasticFrame::Way;
  const auto& frame = p.Inside().ctlWebBrowser1.Frame();
  EXPECT_THAT(dynamic_cast<const FakeElasticFrame&>(frame).ways,
              ElementsAre(Way::Forward, Way::Back));
}

TEST_F(Keys, F6PassesOverWhatIsHidden) {
  p.Inside().menu.mnuSideBarContent(0).Click.Raise();
  p.Inside().menu.mnuView(0).Click.Raise();
  p.Address().SetFocus();
  Press(kKeyF6, 0);
  EXPECT_EQ(p.desktop.focus, "brwWebBrowser") << "the links list is part of the side bar";
  Press(kKeyF6, kShiftMask);
  EXPECT_EQ(p.desktop.focus, "cboAddress");
}

std::string FileText(const std::string& name) {
  std::ifstream file(std::string(CORVANE_SOURCE_DIR) + "/" + name);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST(KeyTexts, EveryKeyIsInTheReadmeAndInTheHelp) {
  const std::string readme = FileText("README.md");
  const std::string help = FileText("data/cvhelp.txt");
  for (const KeyCommand& command : AllKeyCommands()) {
    EXPECT_NE(readme.find(command.keys), std::string::npos) << command.keys;
    // The help is spoken, so it writes keys in words.
    const std::string spoken =
        text::replace_all(text::replace_all(command.keys, "Ctrl", "Control"), "+", " ");
    EXPECT_NE(help.find(spoken), std::string::npos) << spoken;
  }
}

}  // namespace
}  // namespace corvane::tests
