#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct PageReaderTest : ::testing::Test {
  Program p;

  void Start() {
    p.StartTalking();
    p.Reading().Fire();  // the first tick goes to the start page and finds no page yet
    p.Reading().enabled = false;
    p.TextPane().SetText("");
    p.Spoken();
  }
};

TEST_F(PageReaderTest, PageReadWithinOneTickSaysItsWordsInOrder) {
  p.desktop.settings.Pane("SideBar") = "2";
  p.desktop.settings.Pane("Focus") = "0";
  Start();
  p.Read(MakePage("http://news.example/", "News", "All the news", {{"One", "http://1/"}}));
  EXPECT_THAT(p.Spoken(), ElementsAre("Working...", "Done", "Extracting Forms ...",
                                      "Extracting Links ...", "1 Links in News", "Done", "News"));
  EXPECT_EQ(p.TextPane().text, "News\nAll the news");
  EXPECT_FALSE(p.Reading().enabled);
}

TEST_F(PageReaderTest, APageThatIsCompleteIsReadAtOnceButNotFromWithinTheEnginesEvent) {
  Start();
  p.Browser().Begin();
  EXPECT_FALSE(p.Reading().soon);
  p.Spoken();
  p.Browser().Finish(MakePage("http://a/", "A", ""));
  EXPECT_TRUE(p.Reading().soon);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  p.Reading().Fire();
  EXPECT_THAT(p.Spoken(), ::testing::Contains("A"));
  EXPECT_FALSE(p.Reading().enabled);
}

TEST_F(PageReaderTest, TheFocusIsLedOnBeforeAKeyThatFollowsTheTitleIsHeard) {
  p.desktop.settings.Pane("Focus") = "4";
  Start();
  std::string focus;
  p.desktop.on_yield = [&] {
    const bool is_said = p.TextPane().text.find("All the news") != std::string::npos;
    if (is_said && focus.empty()) focus = p.desktop.focus;
  };
  p.Read(MakePage("http://news.example/", "News", "All the news"));
  EXPECT_EQ(focus, "brwWebBrowser");
}

TEST_F(PageReaderTest, SideBarThatShowsThePageAddsItsWord) {
  for (const char* content : {"4", "5"}) {
    Program program;
    program.desktop.settings.Pane("SideBar") = content;
    program.desktop.settings.Pane("Focus") = "0";
    program.StartTalking();
    program.Reading().Fire();
    program.Spoken();
    program.Read(MakePage("http://a/", "A", ""));
    EXPECT_THAT(program.Spoken(),
                ElementsAre("Working...", "Done", "Extracting Data ...", "Extracting Forms ...",
                            "Extracting Links ...", "0 Links in A", "Done", "A"));
  }
}

TEST_F(PageReaderTest, WordsAreWrittenToTheTextPaneBeforeThePage) {
  p.desktop.settings.Pane("TextHistory") = "1";
  p.desktop.settings.Pane("SideBar") = "2";
  Start();
  p.Read(MakePage("http://a/", "A", "text of a"));
  EXPECT_EQ(p.TextPane().text,
            "Working...\n\nDone\nExtracting Forms ...\nExtracting Links ...\nDone\nA\ntext of a");
  EXPECT_EQ(p.TextPane().start, 64);  // the caret stands at the page's first character
}

TEST_F(PageReaderTest, NeverClearLetsPagesAccumulate) {
  p.desktop.settings.Pane("TextHistory") = "1";
  Start();
  p.Read(MakePage("http://a/", "A", "text of a"));
  p.Read(MakePage("http://b/", "B", "text of b"));
  EXPECT_NE(p.TextPane().text.find("text of a"), std::string::npos);
  EXPECT_NE(p.TextPane().text.find("text of b"), std::string::npos);
}

TEST_F(PageReaderTest, ClearWithNewPageKeepsOnlyTheNewPage) {
  Start();
  p.Read(MakePage("http://a/", "A", "text of a"));
  p.Read(MakePage("http://b/", "B", "text of b"));
  EXPECT_EQ(p.TextPane().text, "B\ntext of b");
}

TEST_F(PageReaderTest, SlowPageSaysWorkingAtEveryEighthBusyTick) {
  Program program;
  program.StartTalking();
  program.Browser().busy = true;
  program.Spoken();
  program.Browser().Begin();
  EXPECT_THAT(program.Spoken(), ElementsAre("Working..."));
  for (int tick = 1; tick <= 7; ++tick) program.Reading().Fire();
  EXPECT_THAT(program.Spoken(), IsEmpty());
  program.Reading().Fire();
  EXPECT_THAT(program.Spoken(), ElementsAre("Working..."));
  EXPECT_EQ(program.Status().PanelText(1), "Working...");
  for (int tick = 9; tick <= 10; ++tick) program.Reading().Fire();
  EXPECT_THAT(program.Spoken(), IsEmpty());
}

TEST_F(PageReaderTest, BusyTicksAreCountedOnFromPageToPage) {
  Program program;
  program.StartTalking();
  const auto load = [&](int ticks) {
    program.Browser().Begin();
    program.Spoken();
    for (int i = 0; i < ticks; ++i) program.Reading().Fire();
  };
  load(5);
  EXPECT_THAT(program.Spoken(), IsEmpty());
  program.Browser().Finish(MakePage("http://a/", "A", ""));
  program.Reading().Fire();
  load(2);
  EXPECT_THAT(program.Spoken(), IsEmpty());
  program.Reading().Fire();
  EXPECT_THAT(program.Spoken(), ElementsAre("Working..."));
}

TEST_F(PageReaderTest, StopButtonBlinksFromTheFirstBusyTickOfEachPage) {
  Program program;
  program.Start();
  auto& pictures = program.desktop.Get<FakeCommandButton>("cmdToolbar2").pictures;
  for (int page = 0; page < 2; ++page) {
    program.Browser().Begin();
    pictures.clear();
    program.Reading().Fire();
    program.Browser().Finish(MakePage("http://a/", "A", ""));
    program.Reading().Fire();
    EXPECT_THAT(pictures, ElementsAre(8, 3)) << page;
  }
}

TEST_F(PageReaderTest, StopButtonBlinksWhileLoadingAndRestsAfterwards) {
  Program program;
  program.Start();
  program.Browser().busy = true;
  for (int i = 0; i < 3; ++i) program.Reading().Fire();
  program.Browser().Finish(MakePage("http://a/", "A", ""));
  program.Reading().Fire();
  auto pictures = program.desktop.Get<FakeCommandButton>("cmdToolbar2").pictures;
  EXPECT_THAT(pictures, ElementsAre(3, 8, 3, 8, 3));
}

TEST_F(PageReaderTest, PageIsRememberedAndShownInTheStatusBar) {
  Start();
  p.Status().history.clear();
  p.Read(MakePage("http://a/", "A", ""));
  EXPECT_EQ(p.Inside().ctlWebBrowser1.Inside().state.strAddress, "http://a/");
  EXPECT_THAT(p.Status().history, ElementsAre("A", "http://a/", "A"));
}

TEST_F(PageReaderTest, OnlyTheTitleIsSpokenOfThePage) {
  Start();
  p.Read(MakePage("http://a/", "Title", "a long body"));
  const auto spoken = p.Spoken();
  EXPECT_THAT(spoken, ::testing::Not(::testing::Contains(::testing::HasSubstr("long body"))));
}

TEST_F(PageReaderTest, AutoFocusFollowsTheChoice) {
  const std::vector<std::pair<std::string, std::string>> choices = {{"0", "before"},
                                                                    {"2", "cmbListLinks"},
                                                                    {"3", "TreeView1"},
                                                                    {"4", "brwWebBrowser"},
                                                                    {"5", "Text1"}};
  for (const auto& [choice, control] : choices) {
    Program program;
    program.desktop.settings.Pane("Focus") = choice;
    program.Start();
    program.desktop.focus = "before";
    program.Read(MakePage("http://a/", "A", ""));
    EXPECT_EQ(program.desktop.focus, control) << choice;
  }
}

TEST_F(PageReaderTest, WhoIsInAPageThatChangesInPlaceStaysThere) {
  for (const auto& [manner, focus] :
       {std::pair{"0", "TreeView1"}, std::pair{"1", "brwWebBrowser"}}) {
    Program program;
    program.desktop.settings.Main("Manner") = manner;
    program.desktop.settings.Pane("Focus") = "3";
    program.Start();
    program.Read(MakePage("http://a/", "A", ""));
    program.Browser().SetFocus();
    auto page = MakePage("http://a/#/b", "B", "");
    page->in_place = true;
    program.Read(page);
    EXPECT_EQ(program.desktop.focus, focus) << manner;
    EXPECT_EQ(program.Inside().ctlWebBrowser1.Inside().state.strAddress, "http://a/#/b");
  }
}

// Who has followed a link and gone to the address box meanwhile is about to type there.
TEST_F(PageReaderTest, TheFocusStaysInTheAddressBoxWhileAPageChangesInPlace) {
  for (const auto& [manner, focus] :
       {std::pair{"0", "brwWebBrowser"}, std::pair{"1", "cboAddress"}}) {
    Program program;
    program.desktop.settings.Main("Manner") = manner;
    program.desktop.settings.Pane("Focus") = "4";
    program.Start();
    program.Read(MakePage("http://a/", "A", ""));
    program.Address().SetFocus();
    auto page = MakePage("http://a/#/b", "B", "");
    page->in_place = true;
    program.Read(page);
    EXPECT_EQ(program.desktop.focus, focus) << manner;
  }
}

TEST_F(PageReaderTest, WhoHasAPageReadAgainStaysWhereHeIs) {
  for (const auto& [manner, focus] : {std::pair{"0", "TreeView1"}, std::pair{"1", "Text1"}}) {
    Program program;
    program.desktop.settings.Main("Manner") = manner;
    program.desktop.settings.Pane("Focus") = "3";
    program.Start();
    program.Read(MakePage("http://a/", "A", ""));
    program.TextPane().SetFocus();
    auto page = MakePage("http://a/", "A", "");
    page->read_again = true;
    program.Read(page);
    EXPECT_EQ(program.desktop.focus, focus) << manner;
  }
}

TEST_F(PageReaderTest, LinksListIsNamedBehindTheTitle) {
  Program program;
  program.desktop.settings.Pane("Focus") = "2";
  program.StartTalking();
  program.Spoken();
  program.Read(MakePage("http://a/", "A", ""));
  EXPECT_EQ(program.Spoken().back(), "A");
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), ElementsAre("0 Links in A Links List"));
  program.Links().SetFocus();
  EXPECT_THAT(program.Spoken(), ElementsAre("0 Links in A Links List")) << "at once by itself";
}

TEST_F(PageReaderTest, WordsBehindTheTitleAreNotSaidWhenItIsCutOff) {
  Program program;
  program.desktop.settings.Pane("Focus") = "2";
  program.StartTalking();
  program.Read(MakePage("http://a/", "A", ""));
  program.Spoken();
  program.desktop.speech.agent->CutOff();
  EXPECT_THAT(program.Spoken(), IsEmpty());
}

TEST_F(PageReaderTest, AutoFocusNeverGoesToAHiddenArea) {
  for (const char* choice : {"2", "3"}) {
    Program program;
    program.desktop.settings.Pane("Focus") = choice;
    program.desktop.settings.Pane("SideBar") = "0";
    program.Start();
    program.desktop.focus = "before";
    program.Read(MakePage("http://a/", "A", ""));
    EXPECT_EQ(program.desktop.focus, "before") << choice;
  }
}

TEST_F(PageReaderTest, PageWithoutATitleIsCalledByItsNameOrAddress) {
  p.desktop.settings.Pane("Focus") = "0";
  Start();
  auto page = MakePage("http://a/file.html", "", "text");
  page->nameProp = "file.html";
  p.Read(page);
  EXPECT_EQ(p.Spoken().back(), "file.html");
  p.Read(MakePage("http://a/", "", "text"));
  EXPECT_EQ(p.Spoken().back(), "http://a/");
}

TEST_F(PageReaderTest, TreeOfThePageDoesNotCutOffItsTitle) {
  Program program;
  program.desktop.settings.Pane("Focus") = "3";
  program.desktop.settings.Pane("SideBar") = "4";
  program.StartTalking();
  // The tree has been made when the links are listed, and the focus follows them.
  const auto listed = program.Links().Click.Connect(
      [&] { program.Tree().SetSelectedItem(program.Tree().Nodes().front()); });
  program.Read(MakePage("http://a/", "Title", "text"));
  EXPECT_EQ(program.desktop.focus, "TreeView1");
  EXPECT_EQ(program.Spoken().back(), "Title");
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), ElementsAre("Title Sidebar Item")) << "behind the title";
  program.Tree().SetFocus();  // the user comes to it
  EXPECT_THAT(program.Spoken(), ElementsAre("Title Sidebar Item"));
}

class FavoritesWithFocus : public PageReaderTest {
 protected:
  FavoritesWithFocus() {
    program.desktop.settings.Pane("Focus") = "3";
    program.desktop.settings.Pane("SideBar") = "2";
    program.StartTalking();
    program.Tree().SetSelectedItem(Root());
    program.Read(MakePage("http://a/", "Title", "text"));
    EXPECT_EQ(program.desktop.focus, "TreeView1");
    EXPECT_EQ(program.Spoken().back(), "Title");
  }
  TreeNode* Root() { return program.Tree().Nodes().front(); }
  Program program;
};

TEST_F(FavoritesWithFocus, SayWhereTheUserIsOnceTheTitleHasBeenSpoken) {
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), ElementsAre(Root()->Text() + " Sidebar Item"));
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), IsEmpty());
}

TEST_F(FavoritesWithFocus, SayNothingMoreWhenTheTitleIsCutOff) {
  program.Window(0)->Say("Something else", false);
  program.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(program.Spoken(), ElementsAre("Something else"));
}

TEST_F(PageReaderTest, PanesOwnFocusMenuHasNoSixthItem) {
  FakeDesktop desktop;
  ctlWebBrowser pane(desktop);
  auto& inside = pane.Inside();
  pane.mnuTextHistory_Click(0);
  inside.menu.mnuFocus()(4).SetChecked(true);  // its "Text Box" stands where "WebBrowser" is meant
  auto& browser = desktop.Get<FakeWebBrowser>("brwWebBrowser");
  browser.Finish(MakePage("http://a/", "A", ""));
  auto& tick = static_cast<FakeTimer&>(*inside.controls.timTimer);
  tick.enabled = true;
  tick.Fire();
  EXPECT_EQ(desktop.focus, "brwWebBrowser");
  inside.menu.mnuFocus()(4).SetChecked(false);
  desktop.focus = "before";
  tick.enabled = true;
  tick.Fire();
  EXPECT_EQ(desktop.focus, "before");
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
}

TEST_F(PageReaderTest, PageOnWhichTheUserStaysIsNotReadAgain) {
  Start();
  p.Read(MakePage("http://a/", "Title", "body"));
  p.Spoken();
  p.desktop.focus = "before";
  p.Browser().stayed = true;
  p.Read(p.Browser().document);
  EXPECT_THAT(p.Spoken(), ElementsAre("Working...", "Done"));
  EXPECT_EQ(p.desktop.focus, "before");
  EXPECT_FALSE(p.Reading().enabled);
}

TEST_F(PageReaderTest, PageWithoutDocumentStillSaysItsWords) {
  p.desktop.settings.Pane("Focus") = "0";
  p.desktop.settings.Pane("SideBar") = "2";
  Start();
  p.Read(nullptr);
  EXPECT_THAT(p.Spoken(), ElementsAre("Working...", "Done", "Extracting Forms ...",
                                      "Extracting Links ...", "Done"));
}

TEST_F(PageReaderTest, PageReadWhileAnotherIsBeingReadReplacesIt) {
  p.desktop.settings.Pane("Focus") = "0";
  p.desktop.settings.Pane("SideBar") = "2";
  Start();
  bool interrupted = false;
  p.desktop.on_yield = [&] {
    if (interrupted || p.Links().list.empty() || p.Links().list[0] != "2 Links in Old") return;
    interrupted = true;
    p.Read(MakePage("http://new/", "New", "new text", {{"n", "http://n/"}}));
  };
  p.Read(MakePage("http://old/", "Old", "old text", {{"o1", "http://o1/"}, {"o2", "http://o2/"}}));
  EXPECT_TRUE(interrupted);
  EXPECT_THAT(p.Links().list, ElementsAre("1 Links in New", "n"));
  EXPECT_EQ(p.TextPane().text, "New\nnew text");
  EXPECT_EQ(p.Spoken().back(), "New");
}

TEST_F(PageReaderTest, TitleReadBeforeTheCharacterWasReadyIsSpokenAfterItsWelcome) {
  Program program;
  program.desktop.settings.Main("Speech") = "True";
  program.Start();
  program.Read(MakePage("http://a/", "Title", ""));
  EXPECT_THAT(program.Spoken(), IsEmpty());
  for (FakeTimer* timer : program.desktop.timers) {
    if (timer->interval == 1) timer->Fire();
  }
  for (int i = 0; i < 3; ++i) program.desktop.speech.agent->CompleteLast();
  EXPECT_EQ(program.desktop.speech.Spoken().back(), "\\Pit=90\\\\Spd=150\\Title");
}

TEST_F(PageReaderTest, AreasWithoutWordsAreNamedWhenTheUserComesToThem) {
  Start();
  p.TextPane().SetFocus();
  p.Browser().SetFocus();
  p.Tree().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("Text Box", "WebBrowser", "SideBar"));
}

TEST_F(PageReaderTest, NoAreaCutsTheTitleOffAfterReading) {
  for (const char* focus : {"3", "4", "5"}) {
    Program program;
    program.desktop.settings.Pane("Focus") = focus;
    program.StartTalking();
    program.Reading().Fire();
    program.Read(MakePage("http://a/", "Title", ""));
    EXPECT_EQ(program.Spoken().back(), "Title") << focus;
  }
}

TEST_F(PageReaderTest, FocusedTreeSaysItsSelectedNode) {
  Start();
  TreeNode& node = p.Tree().Add(nullptr, "Frames 2");
  p.Tree().SetSelectedItem(&node);
  p.Tree().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("Frames 2 Sidebar Item"));
  p.Tree().NodeClick.Raise(node);
  EXPECT_THAT(p.Spoken(), ElementsAre("Frames 2 "));
  p.Tree().Add(&node, "child");
  p.Tree().NodeClick.Raise(node);
  node.SetExpanded(true);
  p.Tree().NodeClick.Raise(node);
  EXPECT_THAT(p.Spoken(), ElementsAre("Frames 2 Closed", "Frames 2 Opened"));
}

TEST_F(PageReaderTest, WordsOfAKeyThatWaitedFollowTheWordsBeforeIt) {
  Start();
  TreeNode& node = p.Tree().Add(nullptr, "First");
  TreeNode& next = p.Tree().Add(nullptr, "Second");
  p.desktop.on_yield = [&] {
    p.desktop.on_yield = nullptr;
    p.Tree().NodeClick.Raise(next);
  };
  p.Tree().NodeClick.Raise(node);
  EXPECT_THAT(p.Spoken(), ElementsAre("First ", "Second "));
}

TEST_F(PageReaderTest, AKeyPressedWhileALongPageIsTakenInIsHeardBehindTheTitle) {
  Start();
  p.desktop.on_yield = [&] {
    if (p.TextPane().text.find("xxx") == std::string::npos) return;
    p.desktop.on_yield = nullptr;
    p.desktop.Get<FakeCommandButton>("cmdToolbar0").GotFocus.Raise();
  };
  p.Read(MakePage("http://a/", "Title", std::string(3000, 'x')));
  const auto spoken = p.Spoken();
  ASSERT_GE(spoken.size(), 2U);
  EXPECT_EQ(spoken[spoken.size() - 2], "Title");
  EXPECT_EQ(spoken.back(), "Back Button");
}

TEST_F(PageReaderTest, F1InTheTreeSaysTheTag) {
  Start();
  TreeNode& node = p.Tree().Add(nullptr, "A link");
  node.SetTag("http://target/");
  p.Tree().SetSelectedItem(&node);
  p.Tree().Press(kKeyF1);
  EXPECT_THAT(p.Spoken(), ElementsAre("http://target/"));
}

TEST(PageReaderClosing, WindowMayBeClosedWhileItsPageIsBeingRead) {
  for (int close_at = 1; close_at < 12; ++close_at) {
    Program p;
    p.StartTalking();
    const auto page =
        MakePage("http://p/", "P", "some text", {{"a", "http://a/"}, {"b", "http://b/"}});
    p.Browser().Begin();
    p.Browser().Finish(page);
    int yields = 0;
    p.desktop.on_yield = [&] {
      if (++yields == close_at) p.Window(0)->Unload();
    };
    p.Reading().Fire();
    p.desktop.on_yield = nullptr;
    p.desktop.RunLater();
    if (yields < close_at) break;
    EXPECT_TRUE(p.process.Forms().empty());
    EXPECT_EQ(p.desktop.Living("frmCorvane"), 0U);
  }
}

}  // namespace
}  // namespace corvane::tests
