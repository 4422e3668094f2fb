#include <array>

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct NavigationTest : ::testing::Test {
  Program p;

  void Start() {
    p.StartTalking();
    p.Inside().menu.mnuRate(2).Click.Raise();
    p.Reading().enabled = false;
    Forget();
  }
  /// What the first tick does.
  void GoToStartPage() {
    p.Reading().enabled = true;
    p.Reading().Fire();
    Forget();
  }
  void Forget() {
    p.Spoken();
    p.Browser().calls.clear();
  }
  ctlWebBrowser& Pane() { return p.Inside().ctlWebBrowser1; }
  FakeCommandButton& Button(int index) {
    return p.desktop.Get<FakeCommandButton>("cmdToolbar" + std::to_string(index));
  }
  void TypeAddress(const std::string& address) {
    p.Address().text = address;
    p.Address().Press(kKeyReturn, 0, kKeyReturn);
  }
  static std::string SearchFor(const std::string& query) {
    return "Navigate2 corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=" + query;
  }
};

TEST_F(NavigationTest, TypedAddressIsSpokenAndOpenedAsTyped) {
  Start();
  TypeAddress("example.org/page");
  EXPECT_THAT(p.Spoken(), ElementsAre("example.org/page"));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 example.org/page"));
  EXPECT_TRUE(p.Reading().enabled);
}

TEST_F(NavigationTest, SearchKeepsTheLeadingBlankAsAPlus) {
  Start();
  TypeAddress("Search cats and dogs");
  EXPECT_THAT(p.Browser().calls, ElementsAre(SearchFor("+cats+and+dogs")));
  EXPECT_THAT(p.Spoken(), ElementsAre("Search cats and dogs"));
  EXPECT_TRUE(p.Reading().enabled);
}

TEST_F(NavigationTest, SearchWordIsFoundInAnyCaseAndSignsAreEscaped) {
  Start();
  TypeAddress("search \"a+b\"");
  EXPECT_THAT(p.Browser().calls, ElementsAre(SearchFor("+%22a%2Bb%22")));
}

TEST_F(NavigationTest, SearchingIsASearchForIng) {
  Start();
  TypeAddress("Searching");
  EXPECT_THAT(p.Browser().calls, ElementsAre(SearchFor("ing")));
}

TEST_F(NavigationTest, EmptySearchIsSentToo) {
  Start();
  TypeAddress("search");
  EXPECT_THAT(p.Browser().calls, ElementsAre(SearchFor("")));
}

TEST_F(NavigationTest, OtherCharactersOfASearchStayAsTheyAre) {
  Start();
  TypeAddress("Search caf\xC3\xA9&x=1%");
  EXPECT_THAT(p.Browser().calls, ElementsAre(SearchFor("+caf\xC3\xA9&x=1%")));
}

TEST_F(NavigationTest, HomeButtonEmptiesTheAddressBoxAndStartsReading) {
  Start();
  p.Address().text = "left over";
  Button(4).Click.Raise();
  EXPECT_EQ(p.Address().text, "");
  EXPECT_TRUE(p.Reading().enabled);
}

TEST_F(NavigationTest, StartPageFollowsTheHomeChoice) {
  const std::vector<std::pair<int, std::string>> choices = {{0, "Navigate2 about:blank"},
                                                            {2, "GoHome"},
                                                            {3, "Navigate2 corvane://home/cv/"},
                                                            {4, "Navigate2 http://last.example/"}};
  for (const auto& [choice, call] : choices) {
    Program program;
    program.desktop.settings.Pane("Home") = std::to_string(choice);
    program.desktop.settings.Pane("StartingAddress") = "http://last.example/";
    program.Start();
    program.Reading().Fire();
    EXPECT_THAT(program.Browser().calls, ElementsAre(call));
    EXPECT_EQ(program.Address().text, choice == 4 ? "http://last.example/" : "");
  }
}

TEST_F(NavigationTest, ToolbarButtonsDoTheirWork) {
  Start();
  for (int i = 0; i < 5; ++i) Button(i).Click.Raise();
  EXPECT_THAT(p.Browser().calls, ElementsAre("GoBack", "GoForward", "Stop", "Refresh",
                                             "Navigate2 corvane://home/cv/"));
  p.Browser().calls.clear();
  Button(6).Click.Raise();
  EXPECT_THAT(p.Browser().calls, ElementsAre("ExecWB 6 1"));
}

TEST_F(NavigationTest, StopShowsThePagesName) {
  Start();
  p.Browser().location_name = "Half a page";
  Button(2).Click.Raise();
  EXPECT_EQ(p.Status().PanelText(1), "Half a page");
}

TEST_F(NavigationTest, SearchButtonPreparesTheAddressBox) {
  Start();
  Button(5).Click.Raise();
  EXPECT_EQ(p.Address().text, "Search ");
  EXPECT_EQ(p.Address().caret, 7);
  EXPECT_EQ(p.desktop.focus, "cboAddress");
}

TEST_F(NavigationTest, ButtonsAndAddressBoxAreAnnounced) {
  Start();
  Button(1).SetFocus();
  p.Address().text = "http://a/";
  p.Address().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("Forward Button", "http://a/ Address Box"));
}

TEST_F(NavigationTest, EarlierAddressesAreSpokenAsTheyAreChosen) {
  Start();
  p.Address().SetListIndex(1);
  EXPECT_THAT(p.Spoken(), ElementsAre("https://www.mozilla.org/"));
}

TEST_F(NavigationTest, TabLeavesTheToolbarForAddressBoxOrTextPane) {
  Start();
  EXPECT_FALSE(Button(3).Press(kKeyTab));
  EXPECT_EQ(p.desktop.focus, "cboAddress");
  EXPECT_FALSE(Button(3).Press(kKeyTab, kShiftMask));
  EXPECT_EQ(p.desktop.focus, "Text1");
}

TEST_F(NavigationTest, TabLeavesTheAddressBoxForTheTree) {
  Start();
  EXPECT_FALSE(p.Address().Press(kKeyTab, 0, kKeyTab));
  EXPECT_EQ(p.desktop.focus, "TreeView1");
}

TEST_F(NavigationTest, TabInTheAddressBoxIsNoTrapWithoutASideBar) {
  p.desktop.settings.Pane("SideBar") = "0";
  Start();
  EXPECT_TRUE(p.Address().Press(kKeyTab, 0, kKeyTab));
}

TEST_F(NavigationTest, DownloadBeginSaysWorkingAndStartsTheTick) {
  Start();
  p.Browser().Begin();
  EXPECT_THAT(p.Spoken(), ElementsAre("Working..."));
  EXPECT_EQ(p.TextPane().text, "Working...\n");
  EXPECT_TRUE(p.Reading().enabled);
}

TEST_F(NavigationTest, CompletedAddressEntersTheListOnce) {
  Start();
  const auto page = MakePage("http://a.example/", "A", "");
  p.Browser().Finish(page);
  p.Browser().Finish(page);
  EXPECT_THAT(p.Address().list,
              ElementsAre("corvane://home/cv/", "https://www.mozilla.org/", "http://a.example/"));
  EXPECT_EQ(p.Address().text, "http://a.example/");
  EXPECT_EQ(p.Status().PanelText(1), "A");
}

/// The user begins to type an address while a page loads that is to take the focus.
struct TypingTest : NavigationTest {
  void SetUp() override {
    p.desktop.settings.Pane("Focus") = "2";  // the links list
    Start();
    GoToStartPage();
    p.Read(MakePage("http://first/", "x", ""));
    p.Address().SetFocus();
    p.Address().Type("http://ne");
  }
};

TEST_F(TypingTest, PageThatCompletesLeavesWhatIsBeingTypedAndTheFocus) {
  p.Read(MakePage("http://slow/", "x", ""));
  EXPECT_EQ(p.Address().text, "http://ne");
  EXPECT_THAT(p.Address().list, testing::Contains("http://slow/"));
  EXPECT_EQ(p.desktop.focus, "cboAddress");
}

TEST_F(TypingTest, WhatHasBeenGoneToIsNoLongerTyped) {
  p.Address().Press(kKeyReturn, 0, kKeyReturn);
  p.Read(MakePage("http://new/", "x", ""));
  EXPECT_EQ(p.Address().text, "http://new/");
  EXPECT_EQ(p.desktop.focus, "cmbListLinks");
}

TEST_F(TypingTest, WhatIsLeftGivesWayToThePagesAddress) {
  p.Links().SetFocus();
  p.Address().SetFocus();
  p.Read(MakePage("http://slow/", "x", ""));
  EXPECT_EQ(p.Address().text, "http://slow/");
  EXPECT_EQ(p.desktop.focus, "cmbListLinks");
}

TEST_F(TypingTest, WhatIsLeftUnsentIsGivenUp) {
  p.Links().SetFocus();
  EXPECT_EQ(p.Address().text, "http://first/");
  p.Address().SetFocus();
  EXPECT_EQ(p.Spoken().back(), "http://first/ Address Box");
}

TEST_F(TypingTest, EscapeTakesItBackAndSaysTheAddressOnce) {
  p.Spoken();
  p.Address().Press(kKeyEscape, 0, kKeyEscape);
  EXPECT_EQ(p.Address().text, "http://first/");
  EXPECT_THAT(p.Spoken(), ElementsAre("http://first/ Address Box"));
  p.Address().Type("x");
  EXPECT_EQ(p.Address().text, "x") << "typed over it";
}

TEST_F(TypingTest, WhatWasGoneToStaysForMending) {
  p.Address().Press(kKeyReturn, 0, kKeyReturn);
  p.Browser().Finish(MakePage("about:problem", "Not an address", ""));
  p.Reading().Fire();
  p.Links().SetFocus();
  EXPECT_EQ(p.Address().text, "http://ne");
}

TEST_F(NavigationTest, KeysThatChangeNothingAreNoTyping) {
  Start();
  GoToStartPage();
  p.Address().SetFocus();
  constexpr int kCopy = 3;
  constexpr int kSelectAll = 1;
  p.Address().Press('C', kCtrlMask, kCopy);
  p.Address().Press('A', kCtrlMask, kSelectAll);
  p.Read(MakePage("http://slow/", "x", ""));
  EXPECT_EQ(p.Address().text, "http://slow/");
}

TEST_F(NavigationTest, KeysThatChangeTheAddressAreTyping) {
  constexpr int kPaste = 22;
  constexpr int kCut = 24;
  const std::vector<std::array<int, 3>> keys = {{kKeyBackspace, 0, kKeyBackspace},
                                                {kKeyBackspace, kCtrlMask, 127},
                                                {kKeyDelete, 0, 0},
                                                {'V', kCtrlMask, kPaste},
                                                {'X', kCtrlMask, kCut}};
  for (const auto& [code, shift, character] : keys) {
    Program program;
    program.desktop.settings.Pane("Focus") = "0";
    program.Start();
    program.Reading().Fire();
    program.Read(MakePage("http://first/", "x", ""));
    program.Address().SetFocus();
    program.Address().Press(code, shift, character);
    program.Read(MakePage("http://slow/", "x", ""));
    EXPECT_NE(program.Address().text, "http://slow/") << code;
  }
}

TEST_F(NavigationTest, TheOpenListIsHeardEntryByEntry) {
  Start();
  p.Address().SetFocus();
  p.Spoken();
  p.Address().Highlight.Raise("http://one/");
  EXPECT_THAT(p.Spoken(), ElementsAre("http://one/"));
}

TEST_F(NavigationTest, AProblemsPageIsNoStartPage) {
  Start();
  GoToStartPage();
  p.Read(MakePage("http://last.example/", "Last", ""));
  p.Read(MakePage("about:problem", "Not an address", ""));
  EXPECT_EQ(p.Status().history.at(p.Status().history.size() - 2), "about:problem");
  p.Window(0)->Unload();
  EXPECT_EQ(p.desktop.settings.Pane("StartingAddress"), "http://last.example/");
}

TEST_F(NavigationTest, WithoutALastPageTheMakersHomePageIsTheFirst) {
  for (const char* stored : {"", "about:problem"}) {
    Program program;
    program.desktop.settings.Pane("Home") = "4";
    program.desktop.settings.Pane("StartingAddress") = stored;
    program.Start();
    program.Reading().Fire();
    EXPECT_THAT(program.Browser().calls, ElementsAre("Navigate2 corvane://home/cv/"));
  }
}

TEST_F(NavigationTest, AddressThatBeginsWithAboutNeverEntersTheList) {
  Start();
  for (const char* address : {"about:blank", "About:config", "aboutme.example", ""}) {
    p.Browser().Finish(MakePage(address, "x", ""));
  }
  EXPECT_EQ(p.Address().list.size(), 2U);
}

TEST_F(NavigationTest, AddressListYieldsBetweenItems) {
  Start();
  p.desktop.yields = 0;
  p.Browser().Finish(MakePage("http://new.example/", "x", ""));
  EXPECT_EQ(p.desktop.yields, 2);
}

TEST_F(NavigationTest, StatusTextIsShownAndSpokenOnlyWithFeedback) {
  Start();
  p.Browser().StatusTextChange.Raise("Loading a");
  EXPECT_EQ(p.Status().PanelText(1), "Loading a");
  EXPECT_THAT(p.Spoken(), IsEmpty());
  Pane().cmdAction(9);
  p.Browser().StatusTextChange.Raise("Loading b");
  EXPECT_THAT(p.Spoken(), ElementsAre("Loading b"));
}

TEST_F(NavigationTest, FeedbackClickedTwiceStaysOn) {
  Start();
  MenuArray& options = Pane().Inside().menu.mnuOptions;
  options(4).Click.Raise();
  options(4).Click.Raise();
  EXPECT_TRUE(Pane().Inside().state.blnStatusFeedback);
  EXPECT_TRUE(options(4).Checked());
  EXPECT_FALSE(options(0).Checked());
}

TEST_F(NavigationTest, MissingStatusBarIsNotWrittenTo) {
  Start();
  Pane().SetStatusBar(nullptr);
  p.Browser().StatusTextChange.Raise("nobody sees");
  EXPECT_THAT(p.Status().history, ::testing::Not(::testing::Contains("nobody sees")));
}

TEST_F(NavigationTest, NumberedCommands) {
  Start();
  Pane().cmdAction(1);
  Pane().cmdAction(2);
  EXPECT_THAT(p.Browser().calls, ElementsAre("ExecWB 4 2", "ExecWB 6 1"));
  const std::vector<std::pair<int, std::string>> focus = {
      {4, "TreeView1"}, {5, "Text1"}, {6, "cboAddress"}, {7, "cmdToolbar0"}, {8, "cboAddress"}};
  for (const auto& [action, control] : focus) {
    p.desktop.focus.clear();
    p.Address().text = "x";
    Pane().cmdAction(action);
    EXPECT_EQ(p.desktop.focus, control) << action;
    if (control == "cboAddress") {
      EXPECT_EQ(p.Address().text, action == 8 ? "" : "x");
    }
  }
  p.desktop.focus.clear();
  Pane().cmdAction(0);
  Pane().cmdAction(99);
  EXPECT_EQ(p.desktop.focus, "");
}

TEST_F(NavigationTest, CommandsLeadToNothingHidden) {
  p.desktop.settings.Pane("SideBar") = "0";
  Start();
  Pane().HideButtonToolBar(true);
  p.desktop.focus = "before";
  Pane().cmdAction(4);
  Pane().cmdAction(7);
  EXPECT_EQ(p.desktop.focus, "before");
}

TEST_F(NavigationTest, EditWorksOnTheTextPaneThroughTheClipboard) {
  Start();
  p.TextPane().SetText("one two three");
  p.TextPane().start = 4;
  p.TextPane().length = 3;
  Pane().Edit(1);
  EXPECT_EQ(p.desktop.clipboard.text, "two");
  EXPECT_EQ(p.desktop.clipboard.clears, 1);
  EXPECT_EQ(p.TextPane().text, "one two three");
  Pane().Edit(0);
  EXPECT_EQ(p.TextPane().text, "one  three");
  EXPECT_EQ(p.desktop.clipboard.clears, 2);
  p.TextPane().start = 0;
  Pane().Edit(2);
  EXPECT_EQ(p.TextPane().text, "twoone  three");
  Pane().Edit(3);
  Pane().Edit(4);
  EXPECT_EQ(p.TextPane().start, 0);
  EXPECT_EQ(p.TextPane().length, 13);
  EXPECT_EQ(p.desktop.focus, "Text1");
}

}  // namespace
}  // namespace corvane::tests
