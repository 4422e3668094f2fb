#include "browser/SideBar.h"

#include "tests/unit/program.h"
#include "web/library/LinkFile.h"

namespace corvane::tests {
namespace {

struct SideBarTest : ::testing::Test {
  Program p;
  FakeShell& shell = p.desktop.shell;

  void StartWith(int content) {
    p.desktop.settings.Pane("SideBar") = std::to_string(content);
    p.StartTalking();
    p.Spoken();
  }
  FakeTreeNode& Root() { return *p.Tree().nodes.at(0); }
  /// Opens the root and selects its child.
  FakeTreeNode& Choose(std::size_t index) {
    if (!Root().expanded) p.Tree().Toggle(Root());
    FakeTreeNode& node = Root()[index];
    p.Tree().Click(node);
    p.Spoken();
    p.Browser().calls.clear();
    return node;
  }
  void Shortcut(const std::string& path, const std::string& address) {
    shell.File(path);
    p.desktop.files.files[path] = {"x"};
    p.desktop.files.files[path] = {"[InternetShortcut]", "URL=" + address};
  }
  PaneContext& Pane() { return p.Inside().ctlWebBrowser1.Inside(); }
};

// What is shown -----------------------------------------------------------------

TEST_F(SideBarTest, FavoritesShowTheirFolder) {
  shell.File("/data/Favorites/Weather.url");
  StartWith(kSideBarFavorites);
  EXPECT_EQ(Root().text, "Favorites");
  EXPECT_EQ(Root().tag, "");
  p.Tree().Toggle(Root());
  EXPECT_THAT(Root().Labels(), ElementsAre("Weather.url"));
}

TEST_F(SideBarTest, HistoryIsTheFolderBesideTheShellsOwn) {
  shell.history = "/data/Other";
  shell.Folder("/data/Other");
  shell.Folder("/data/Other/no day");
  shell.Folder("/data/History/2001-12-31");
  StartWith(kSideBarHistory);
  p.Tree().Toggle(Root());
  EXPECT_THAT(Root().Labels(), ElementsAre("2001-12-31"));
}

TEST_F(SideBarTest, PageStructureIsBuiltWhenThePageIsRead) {
  StartWith(kSideBarPageStructure);
  EXPECT_TRUE(p.Tree().nodes.empty()) << "there is no page yet";
  p.Read(MakePage("http://a/", "Title", "body", {{"Sports", "http://a/sports"}}));
  EXPECT_EQ(Root().text, "Title");
  EXPECT_EQ(Root().image, 1);
  EXPECT_THAT(p.Spoken(),
              ElementsAre("Working...", "Done", "Extracting Data ...", "Extracting Forms ...",
                          "Extracting Links ...", "1 Links in Title", "Done", "Title"));
  p.Tree().Toggle(Root());
  EXPECT_THAT(Root().Labels(), ElementsAre("Links 1", "Frames 0", "Anchors 0", "Forms 0"));
}

TEST_F(SideBarTest, PageStructureOfAPageAlreadyReadIsShownAtOnce) {
  StartWith(kSideBarFavorites);
  p.Read(MakePage("http://a/", "Title", "body"));
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarPageStructure);
  EXPECT_EQ(Root().text, "Title");
}

TEST_F(SideBarTest, NoneEmptiesTheTree) {
  StartWith(kSideBarFavorites);
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarNone);
  EXPECT_TRUE(p.Tree().nodes.empty());
}

TEST_F(SideBarTest, ContentChosenWhileAnotherIsMadeWins) {
  shell.entries["/data/Favorites"].image = 3;
  StartWith(kSideBarHistory);
  p.desktop.on_yield = [&, once = false]() mutable {
    if (std::exchange(once, true)) return;
    p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarHistory);
  };
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarFavorites);
  ASSERT_EQ(p.Tree().nodes.size(), 1U);
  EXPECT_EQ(Root().text, "History");
}

TEST_F(SideBarTest, WindowClosedWhileTheStructureIsBuiltIsSurvived) {
  StartWith(kSideBarPageStructure);
  FakeForm& form = p.desktop.Get<FakeForm>("frmCorvane");
  p.Browser().Begin();
  p.Browser().Finish(MakePage("http://a/", "Title", "body", {{"x", "http://x/"}}));
  p.desktop.on_yield = [&, once = false]() mutable {
    const auto spoken = p.desktop.speech.Spoken();
    const bool building = !spoken.empty() && spoken.back().ends_with("Extracting Data ...");
    if (building && !std::exchange(once, true)) form.Close(Form::UnloadMode::ControlMenu);
  };
  p.Reading().Fire();
  EXPECT_TRUE(p.process.Forms().empty());
}

TEST_F(SideBarTest, ClosingTheWindowEndsTheMakingOfATree) {
  for (int i = 0; i < 100; ++i) shell.File("/data/Favorites/" + std::to_string(i));
  StartWith(kSideBarFavorites);
  FakeTreeView& tree = p.Tree();
  int added_afterwards = 0;
  p.desktop.on_yield = [&, closed = false]() mutable {
    if (closed) ++added_afterwards;
    if (closed || tree.nodes.empty() || Root().children.size() < 10) return;
    closed = true;
    p.desktop.Get<FakeForm>("frmCorvane").Close(Form::UnloadMode::ControlMenu);
  };
  tree.Toggle(Root());
  EXPECT_EQ(added_afterwards, 0);
  EXPECT_TRUE(tree.nodes.empty());
  EXPECT_EQ(tree.locks, 0);
  p.desktop.RunLater();
  EXPECT_TRUE(p.process.Forms().empty());
}

// The page as it is now ---------------------------------------------------------------

struct ChangedPage : SideBarTest {
  const HTMLDocumentPtr now = MakePage("http://a/", "Title", "", {{"a", "/a"}, {"b", "/b"}});

  void SetUp() override {
    StartWith(kSideBarPageStructure);
    p.Read(MakePage("http://a/", "Title", "body", {{"a", "/a"}}));
    p.Browser().describes_later = true;
    p.Spoken();
  }
  std::vector<std::string> RootLabels() {
    p.Tree().Toggle(Root());
    return Root().Labels();
  }
};

TEST_F(ChangedPage, EscapeShowsItAsItIsNow) {
  p.Tree().SetFocus();
  p.Spoken();
  p.Tree().Press(kKeyEscape);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  p.Browser().Described(now);
  EXPECT_THAT(p.Spoken(), ElementsAre("Title Sidebar Item"));
  EXPECT_THAT(RootLabels(), ElementsAre("Links 2", "Frames 0", "Anchors 0", "Forms 0"));
}

TEST_F(ChangedPage, ChoosingItsStructureShowsItAsItIsNowAndSaysNothing) {
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarFavorites);
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarPageStructure);
  p.Browser().Described(now);
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "the user is elsewhere";
  EXPECT_EQ(RootLabels().at(0), "Links 2");
}

TEST_F(ChangedPage, DescriptionThatComesTooLateIsNotShown) {
  p.Tree().Press(kKeyEscape);
  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarFavorites);
  p.Browser().Described(now);
  EXPECT_EQ(Root().text, "Favorites");
}

TEST_F(ChangedPage, NextPageIsShownThoughTheOneBeforeIsDescribedAfterwards) {
  p.Tree().Press(kKeyEscape);
  p.Read(MakePage("http://b/", "Next", "body"));
  p.Spoken();
  p.Browser().Described(now);
  EXPECT_EQ(Root().text, "Next");
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(ChangedPage, WindowClosedMeanwhileIsSurvived) {
  p.Tree().Press(kKeyEscape);
  const auto described = p.Browser().describing;
  p.desktop.Get<FakeForm>("frmCorvane").Close(Form::UnloadMode::ControlMenu);
  ASSERT_TRUE(described);
  EXPECT_FALSE(*described) << "nobody waits for it any more";
}

TEST_F(SideBarTest, EscapeInTheAccessibilityTreeSaysItsFirstNodeWhenItIsThere) {
  StartWith(kSideBarAccessibility);
  const auto page = FakeAccessible::Make("The news", 15);
  page->Add(FakeAccessible::Make("Weather", 30));
  const auto window =
      p.desktop.windows.Add("", "Internet Explorer_Server", Pane().controls.ELAMain->hwnd());
  p.desktop.accessibility.objects[{window, kObjectClient}] = page;
  p.Tree().SetFocus();
  p.Spoken();
  p.Tree().Press(kKeyEscape);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  p.desktop.accessibility.Arrive();
  EXPECT_THAT(p.Spoken(), ElementsAre("HTML_Internet Explorer document Sidebar Item"));
  Pane().controls.Timer1->Tick.Raise();
  p.desktop.accessibility.Arrive();
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "said once";
}

// Following -----------------------------------------------------------------------

TEST_F(SideBarTest, FavoriteIsFollowedToTheAddressInItsFile) {
  Shortcut("/data/Favorites/Weather.url", "http://weather/");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Reading().enabled = false;
  p.Tree().Press(kKeyReturn);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://weather/"));
  EXPECT_TRUE(p.Reading().enabled);
}

TEST_F(SideBarTest, LongAddressInAShortcutIsFollowedWhole) {
  const std::string address = "http://a/" + std::string(191, 'x');
  Shortcut("/data/Favorites/Long.url", address);
  p.desktop.settings.Main("Manner") = "1";
  StartWith(kSideBarFavorites);
  p.Tree().DoubleClick(Choose(0));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 " + address));
}

TEST_F(SideBarTest, EstablishedReaderCutsALongAddressTo126Characters) {
  const std::string address = "http://a/" + std::string(191, 'x');
  Shortcut("/data/Favorites/Long.url", address);
  StartWith(kSideBarFavorites);
  p.Tree().DoubleClick(Choose(0));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 " + address.substr(0, 126)));
}

TEST_F(SideBarTest, FavoriteThatIsAPageIsFollowedItself) {
  shell.File("/data/Favorites/saved.HTM");
  shell.File("/data/Favorites/saved.html");
  p.desktop.settings.Main("Manner") = "1";
  StartWith(kSideBarFavorites);
  p.Tree().DoubleClick(Choose(0));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 /data/Favorites/saved.HTM"));
  p.Tree().DoubleClick(Choose(1));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 /data/Favorites/saved.html"));
}

TEST_F(SideBarTest, FavoriteThatIsAPageOfTodaysNameIsFollowedItself) {
  for (const char* manner : {"0", "1"}) {
    Program program;
    program.desktop.settings.Main("Manner") = manner;
    program.desktop.settings.Pane("SideBar") = "2";
    program.desktop.shell.File("/data/Favorites/saved.html");
    program.StartTalking();
    FakeTreeNode& root = *program.Tree().nodes.at(0);
    program.Tree().Toggle(root);
    program.Browser().calls.clear();
    program.Tree().DoubleClick(root[0]);
    const bool today = manner == std::string("1");
    EXPECT_EQ(program.Browser().calls.size(), today ? 1U : 0U) << manner;
  }
}

TEST_F(SideBarTest, DesktopLinkIsReadInItsOwnWay) {
  shell.File("/data/Favorites/Long.desktop");
  const std::string address = "http://a/" + std::string(500, 'x');
  p.desktop.files.files["/data/Favorites/Long.desktop"] = {"[Desktop Entry]", "URL=" + address};
  StartWith(kSideBarFavorites);
  p.Tree().DoubleClick(Choose(0));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 " + address));
}

TEST_F(SideBarTest, FavoriteWithoutAnAddressGoesNowhere) {
  Shortcut("/data/Favorites/empty.url", "");
  StartWith(kSideBarFavorites);
  p.Tree().DoubleClick(Choose(0));
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.Spoken(), ElementsAre("No address in empty.url"));
}

TEST_F(SideBarTest, EnterOnAFolderOpensAndClosesIt) {
  shell.Folder("/data/Favorites/News");
  shell.File("/data/Favorites/News/x.url");
  StartWith(kSideBarFavorites);
  FakeTreeNode& folder = Choose(0);
  p.Tree().Press(kKeyReturn);
  EXPECT_TRUE(folder.expanded);
  p.Tree().Press(kKeyReturn);
  EXPECT_FALSE(folder.expanded);
  EXPECT_THAT(p.Spoken(), ElementsAre("News Opened", "News Closed"));
  EXPECT_THAT(p.TextPane().text, ::testing::EndsWith("News Opened\nNews Closed\n"));
}

TEST_F(SideBarTest, HistoryAndPageStructureAreFollowedToTheirTags) {
  shell.File("/data/History/visited").opened_by = "http://visited/";
  StartWith(kSideBarHistory);
  p.Tree().DoubleClick(Choose(0));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://visited/"));

  p.Inside().ctlWebBrowser1.mnuSideBarContent_Click(kSideBarPageStructure);
  p.Read(MakePage("http://a/", "Title", "body", {{"Sports", "http://a/sports"}}));
  FakeTreeNode& links = Choose(0);
  p.Tree().Toggle(links);
  p.Tree().DoubleClick(links[0]);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://a/sports"));
}

TEST_F(SideBarTest, OnlyEnterAloneFollows) {
  Shortcut("/data/Favorites/Weather.url", "http://weather/");
  StartWith(kSideBarFavorites);
  Choose(0);
  for (const int shift : {kShiftMask, kCtrlMask, kAltMask}) p.Tree().Press(kKeyReturn, shift);
  EXPECT_THAT(p.Browser().calls, IsEmpty());
}

TEST_F(SideBarTest, NothingIsFollowedWhileNoContentIsChosen) {
  StartWith(kSideBarNone);
  p.Tree().Add(nullptr, "stray").SetTag("http://a/");
  p.Tree().DoubleClick(Root());
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(SideBarTest, HostileAddressesInFilesAreRefusedAloud) {
  Shortcut("/data/Favorites/a.url", "javascript:alert(1)");
  Shortcut("/data/Favorites/b.url", " \tJava\tScript:alert(1)");
  Shortcut("/data/Favorites/c.url", "data:text/html,<script>");
  StartWith(kSideBarFavorites);
  for (const std::size_t i : {0, 1, 2}) {
    p.Tree().DoubleClick(Choose(i));
    EXPECT_THAT(p.Browser().calls, IsEmpty());
  }
  EXPECT_THAT(p.Spoken(), ElementsAre("Address refused: data:text/html,<script>"));
}

TEST_F(SideBarTest, PageFromElsewhereDoesNotLeadToFiles) {
  StartWith(kSideBarPageStructure);
  p.Read(MakePage("http://a/", "Title", "body", {{"secret", "file:///etc/passwd"}}));
  FakeTreeNode& links = Choose(0);
  p.Tree().Toggle(links);
  p.Spoken();
  p.Tree().DoubleClick(links[0]);
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.Spoken(), ElementsAre("Address refused: file:///etc/passwd"));
}

TEST(HostileAddress, IsToldByItsSchemeAndWhereItComesFrom) {
  EXPECT_FALSE(IsHostileAddress("file:///home/a", "")) << "the user's own file may lead to another";
  EXPECT_FALSE(IsHostileAddress("file:///home/a", "file:///home/b"));
  EXPECT_TRUE(IsHostileAddress("corvane://home/", "https://a/"));
  EXPECT_FALSE(IsHostileAddress("https://a/?q=javascript:x", ""));
  EXPECT_FALSE(IsHostileAddress("javascript:next()", "https://a/")) << "the page's own link";
  EXPECT_TRUE(IsHostileAddress("VBScript:x", "https://a/"));
  EXPECT_FALSE(IsHostileAddress("example.org", ""));
  EXPECT_FALSE(IsHostileAddress("", ""));
}

// Keys ---------------------------------------------------------------------------------

TEST_F(SideBarTest, F1OnANodeWithoutAddressSaysSo) {
  shell.File("/data/Favorites/leaf");
  StartWith(kSideBarFavorites);
  p.Tree().SetSelectedItem(&Root());
  p.Tree().Press(kKeyF1);
  EXPECT_THAT(p.Spoken(), ElementsAre("No address in Favorites"));
}

TEST_F(SideBarTest, FocusSaysTheSelectedNode) {
  shell.File("/data/Favorites/leaf");
  StartWith(kSideBarFavorites);
  p.Tree().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("Favorites Sidebar Item")) << "the first, to begin with";
  Choose(0);
  p.Tree().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("leaf Sidebar Item"));
}

TEST_F(SideBarTest, FocusMovedAfterReadingDoesNotCutTheTitleOff) {
  p.desktop.settings.Pane("Focus") = "3";
  StartWith(kSideBarFavorites);
  p.Read(MakePage("http://a/", "Title", "body"));
  EXPECT_EQ(p.desktop.focus, "TreeView1");
  EXPECT_EQ(p.Spoken().back(), "Title");
}

TEST_F(SideBarTest, NodesSayWhetherTheyAreOpen) {
  shell.File("/data/Favorites/leaf");
  StartWith(kSideBarFavorites);
  p.Tree().Click(Root());
  p.Tree().Toggle(Root());
  p.Tree().Click(Root()[0]);
  EXPECT_THAT(p.Spoken(), ElementsAre("Favorites Closed", "Favorites Opened", "leaf "));
}

TEST_F(SideBarTest, EscapeMakesTheTreeAnew) {
  StartWith(kSideBarFavorites);
  p.Tree().Toggle(Root());
  shell.File("/data/Favorites/dropped in.url");
  p.Spoken();
  p.Tree().Press(kKeyEscape);
  EXPECT_FALSE(Root().expanded);
  EXPECT_THAT(p.Spoken(), ElementsAre("Favorites Sidebar Item"));
  p.Tree().Toggle(Root());
  EXPECT_THAT(Root().Labels(), ElementsAre("dropped in.url"));
}

TEST_F(SideBarTest, F1SaysTheTag) {
  shell.File("/data/Favorites/x.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyF1);
  EXPECT_THAT(p.Spoken(), ElementsAre("/data/Favorites/x.url"));
}

TEST_F(SideBarTest, NamesInTheTreeCannotBeChangedOrDeletedThere) {
  Shortcut("/data/Favorites/x.url", "http://x/");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyDelete);
  EXPECT_EQ(Root().children.size(), 1U);
  p.Tree().StartLabelEdit();
  EXPECT_FALSE(p.Tree().editing);
}

TEST_F(SideBarTest, HelpOutlineExplainsItsNodesAndLeadsNowhere) {
  StartWith(kSideBarHistory);
  p.desktop.files.files["cvhelp.txt"] = {"Keys: what each key does", "\tEnter", "\t\tinside"};
  p.Inside().ctlWebBrowser1.GetHelp("cvhelp.txt");
  EXPECT_EQ(p.desktop.focus, "TreeView1");
  EXPECT_THAT(p.Spoken(), ElementsAre("Keys Sidebar Item"));
  p.Browser().calls.clear();
  p.Tree().Press(kKeyReturn);
  EXPECT_THAT(p.Spoken(), ElementsAre("what each key does"));
  p.Tree().DoubleClick(Root()[0]);
  EXPECT_THAT(p.Spoken(), ElementsAre("Enter Opened"));
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  p.Tree().Press(kKeyEscape);
  EXPECT_EQ(Root().text, "History") << "back to what the side bar shows";
}

TEST_F(SideBarTest, HelpSaysSoWhenTheSideBarIsNotShown) {
  StartWith(kSideBarNone);
  p.desktop.files.files["cvhelp.txt"] = {"Keys"};
  p.Inside().ctlWebBrowser1.GetHelp("cvhelp.txt");
  EXPECT_THAT(p.Spoken(), ElementsAre("The help is in the side bar, which is not shown"));
}

}  // namespace
}  // namespace corvane::tests
