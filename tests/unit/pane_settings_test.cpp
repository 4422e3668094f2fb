#include "tests/unit/program.h"

#include "browser/EngineVersion.h"

namespace corvane::tests {
namespace {

PaneState loaded(FakeDesktop& desktop, const Manner& manner = kEstablishedManner) {
  PaneContext pane(desktop, manner);
  PaneSettings(pane).LoadSettings();
  return pane.state;
}

TEST(PaneSettings, FirstRunStartsTheSideBarAtHalfTheWidth) {
  FakeDesktop desktop;
  EXPECT_EQ(loaded(desktop).sngSplitter, 0.5F);
  EXPECT_EQ(loaded(desktop).sngSplitterH, 0.25F);
}

TEST(PaneSettings, FirstRunThatFillsTheScreenLeavesThePageThreeQuartersOfIt) {
  FakeDesktop desktop;
  Manner manner;
  manner.whole_screen = true;
  EXPECT_EQ(loaded(desktop, manner).sngSplitter, 0.25F);
}

TEST(PaneSettings, StoredZeroIsAQuarter) {
  FakeDesktop desktop;
  desktop.settings.Pane("Splitter") = "0";
  desktop.settings.Pane("SplitterH") = "0";
  EXPECT_EQ(loaded(desktop).sngSplitter, 0.25F);
  EXPECT_EQ(loaded(desktop).sngSplitterH, 0.25F);
}

TEST(PaneSettings, StoredRatioIsTaken) {
  FakeDesktop desktop;
  desktop.settings.Pane("Splitter") = "0.3";
  desktop.settings.Pane("SplitterH") = "0.6";
  EXPECT_EQ(loaded(desktop).sngSplitter, 0.3F);
  EXPECT_EQ(loaded(desktop).sngSplitterH, 0.6F);
}

TEST(PaneSettings, RatioThatWouldHideASideIsAQuarter) {
  FakeDesktop desktop;
  for (const char* bad : {"-1", "7", "1", "rubbish", "nan", "1e99"}) {
    desktop.settings.Pane("Splitter") = bad;
    EXPECT_EQ(loaded(desktop).sngSplitter, 0.25F) << bad;
  }
}

TEST(PaneSettings, StartingAddressIsEmptyAtFirst) {
  FakeDesktop desktop;
  EXPECT_EQ(loaded(desktop).strAddress, "");
  desktop.settings.Pane("StartingAddress") = "http://example.org/";
  EXPECT_EQ(loaded(desktop).strAddress, "http://example.org/");
}

TEST(MenuToggleCheck, ChecksOneItemAndUnchecksTheOthers) {
  Program p;
  p.Start();
  MenuArray& rate = p.Inside().menu.mnuRate;
  p.Inside().ctlWebBrowser1.MenuToggleCheck(4, rate);
  p.Inside().ctlWebBrowser1.MenuToggleCheck(1, rate);
  for (int i = 0; i < rate.Count(); ++i) EXPECT_EQ(rate(i).Checked(), i == 1);
}

TEST(MenuToggleCheck, IndexOutsideTheArrayIsReported) {
  Program p;
  p.Start();
  p.Inside().ctlWebBrowser1.MenuToggleCheck(9, p.Inside().menu.mnuRate);
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("MenuToggleCheck Error: Control array element '9' doesn't exist"));
}

TEST(ProfileFile, ValueIsCutTo126Characters) {
  Program p;
  p.desktop.files.files["a.url"] = {"[InternetShortcut]", "URL=" + std::string(200, 'u')};
  p.Start();
  EXPECT_EQ(p.Inside().ctlWebBrowser1.VBGetPrivateProfileString("InternetShortcut", "URL", "a.url"),
            std::string(126, 'u'));
  EXPECT_EQ(p.Inside().ctlWebBrowser1.VBGetPrivateProfileString("InternetShortcut", "URL", "b.url"),
            "");
}

std::string label(const std::string& version, const std::string& build) {
  FakeRegistry registry;
  registry.SetEngine(version, build);
  return GetExplorerVersion(registry);
}

TEST(EngineVersion, TableOfBuilds) {
  EXPECT_EQ(label("4.70.1155", "4544"), "4.0 (PP1)");
  EXPECT_EQ(label("4", "41008.3"), "4.0 (PP2)");
  EXPECT_EQ(label("4.71", "41712.6"), "4.0");
  EXPECT_EQ(label("4.72", "42106.8"), "4.01");
  EXPECT_EQ(label("4.72", "43110.8"), "4.01 (SP1)");
  EXPECT_EQ(label("4.72", "43612.1713"), "4.01 (SP2)");
  EXPECT_EQ(label("5.00", "5518.1"), "5.0 (Beta 1)");
  EXPECT_EQ(label("5.00", "5910.1309"), "5.0 (Beta 2)");
  EXPECT_EQ(label("5.00", "52014.0216"), "5.0");
  EXPECT_EQ(label("6.00", "52516.19"), "5.0 (Win 2000.2031)");
  EXPECT_EQ(label("", "999"), "0");
  EXPECT_EQ(label("", ""), "0");
  EXPECT_EQ(label("", "1155"), "3.0");
  EXPECT_EQ(label("", "1158"), "3.0 (OSR2)");
  EXPECT_EQ(label("", "1215"), "3.01");
  EXPECT_EQ(label("", "1300"), "3.02");
  EXPECT_EQ(label("", "1301"), "3.02+");
  EXPECT_EQ(label("", "1000"), "3.0x");
  EXPECT_EQ(label("5.5", "1"), "");
  EXPECT_EQ(label("4.0", "52014.0216"), "");
}

TEST(EngineVersion, BuildsAreComparedAsSingles) {
  // The nearest single of 52014.0216 is 52014.0234375 as well.
  EXPECT_EQ(label("5.00", "52014.0234375"), "5.0");
  EXPECT_EQ(label("4.72", "43612.17"), "4.01 (SP2)");
  EXPECT_EQ(label("5.00", "52014.03"), "");
}

std::vector<std::string> warnings_with_engine(const std::string& version,
                                              const std::string& build) {
  Program p;
  p.desktop.registry.SetEngine(version, build);
  p.Start();
  EXPECT_EQ(p.process.Forms().size(), 1U);  // the pane comes up all the same
  return p.desktop.boxes.Texts();
}

TEST(EngineVersion, OldEngineIsReportedOnceAndThePaneComesUp) {
  const char* message = "Internet Explorer 4.01 or greater was not found on this machine";
  EXPECT_THAT(warnings_with_engine("", "1300"), ElementsAre(message));
  EXPECT_THAT(warnings_with_engine("", ""), ElementsAre(message));
  EXPECT_THAT(warnings_with_engine("5.5", "1"), ElementsAre(message));
  EXPECT_THAT(warnings_with_engine("4.70", "4544"), IsEmpty());
  EXPECT_THAT(warnings_with_engine("5.00", "52516.19"), IsEmpty());
}

TEST(RegEntry, RootsMapToTheirHandlesAndAbsenceIsEmpty) {
  FakeRegistry registry;
  registry.values.clear();
  const std::vector<std::string> roots = {
      "HKEY_CLASSES_ROOT",     "HKEY_CURRENT_USER",   "HKEY_LOCAL_MACHINE", "HKEY_USERS",
      "HKEY_PERFORMANCE_DATA", "HKEY_CURRENT_CONFIG", "HKEY_DYN_DATA"};
  for (std::uint32_t i = 0; i < roots.size(); ++i) {
    registry.values[{0x80000000U + i, "k", "v"}] = "value below " + roots[i];
  }
  for (const auto& root : roots) {
    EXPECT_EQ(GetRegEntry(registry, root, "k", "v"), "value below " + root);
  }
  EXPECT_EQ(GetRegEntry(registry, "HKEY_USERS", "other", "v"), "");
  EXPECT_EQ(GetRegEntry(registry, "HKEY_USERS", "k", "other"), "");
  EXPECT_EQ(GetRegEntry(registry, "HKEY_NOWHERE", "k", "v"), "");
}

struct Help : ::testing::Test {
  Program p;
  void SetUp() override { p.Start(); }
  void Load(const std::vector<std::string>& lines) {
    p.desktop.files.files["cvhelp.txt"] = lines;
    p.Inside().ctlWebBrowser1.GetHelp("cvhelp.txt");
  }
};

TEST_F(Help, TabsGiveTheDepthAndTheFirstColonSplits) {
  Load({"Keys", "", "\tMoving: with Tab: always", "\t\tBack", "\tSpeaking", "Menus: all of them"});
  auto& nodes = p.Tree().nodes;
  ASSERT_EQ(nodes.size(), 2U);
  EXPECT_EQ(nodes[0]->text, "Keys");
  ASSERT_EQ(nodes[0]->children.size(), 2U);
  EXPECT_EQ(nodes[0]->children[0]->text, "Moving");
  EXPECT_EQ(nodes[0]->children[0]->tag, "with Tab: always");
  EXPECT_EQ(nodes[0]->children[0]->children[0]->text, "Back");
  EXPECT_EQ(nodes[1]->tag, "all of them");
}

TEST_F(Help, OnlyTheTabsInFrontCount) {
  Load({"Go\t\tfar", "\tBack:\twith Alt"});
  auto& nodes = p.Tree().nodes;
  ASSERT_EQ(nodes.size(), 1U);
  EXPECT_EQ(nodes[0]->text, "Go\t\tfar");
  ASSERT_EQ(nodes[0]->children.size(), 1U);
  EXPECT_EQ(nodes[0]->children[0]->tag, "with Alt");
}

TEST_F(Help, LineThatIsTooDeepHangsBelowTheNearestAbove) {
  Load({"\t\t\tlonely", "\t\t\t\t\tfive tabs"});
  ASSERT_EQ(p.Tree().nodes.size(), 1U);
  EXPECT_EQ(p.Tree().nodes[0]->children[0]->text, "five tabs");
}

TEST_F(Help, MissingFileChangesNothing) {
  p.Tree().Add(nullptr, "kept");
  p.Inside().ctlWebBrowser1.GetHelp("nowhere.txt");
  EXPECT_EQ(p.Tree().nodes.size(), 1U);
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(Help, UnreadableFileIsReported) {
  p.desktop.files.unreadable = true;
  Load({"x"});
  EXPECT_THAT(p.desktop.boxes.Texts(), ElementsAre("GetHelp Error: Permission denied"));
}

}  // namespace
}  // namespace corvane::tests
