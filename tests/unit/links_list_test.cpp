#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct LinksListTest : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Pane("Focus") = "0";
    p.StartTalking();
    p.Reading().Fire();
  }
  void Read(const HTMLDocumentPtr& page) {
    p.Read(page);
    p.Spoken();
    p.Browser().calls.clear();
  }
};

TEST_F(LinksListTest, HeaderUsesTheNamePropertyThenTitleThenAddress) {
  auto page = MakePage("http://a/x", "", "", {{"1", "u1"}, {"2", "u2"}, {"3", "u3"}});
  page->nameProp = "x.html";
  Read(page);
  EXPECT_EQ(p.Links().list[0], "3 Links in x.html");
  page = MakePage("http://a/x", "Title", "");
  page->nameProp = "";
  Read(page);
  EXPECT_EQ(p.Links().list[0], "0 Links in Title");
  Read(MakePage("http://a/x", "", ""));
  EXPECT_EQ(p.Links().list[0], "0 Links in http://a/x");
}

TEST_F(LinksListTest, LinkWithoutTextShowsItsAddress) {
  Read(MakePage("http://a/", "A", "", {{"", "http://target/"}, {"", ""}, {"x", "u"}, {"x", "u"}}));
  EXPECT_THAT(p.Links().list, ElementsAre("4 Links in A", "http://target/", "", "x", "x"));
}

TEST(TodaysLinksList, LinkWithoutTextIsCalledByWhatStandsForIt) {
  for (const char* manner : {"1", "0"}) {
    Program p;
    p.desktop.settings.Main("Manner") = manner;
    p.StartTalking();
    auto page = MakePage("http://a/", "A", "", {{"", "http://w/"}, {"", "http://x/"}});
    page->links[0]->label = "The weather";
    p.Read(page);
    const bool today = std::string(manner) == "1";
    EXPECT_THAT(p.Links().list,
                ElementsAre("2 Links in A", today ? "The weather" : "http://w/", "http://x/"));
  }
}

TEST_F(LinksListTest, RefillLeavesNothingOfTheOldPage) {
  Read(MakePage("http://a/", "A", "", {{"old", "u"}}));
  Read(MakePage("http://b/", "B", "", {{"new", "v"}}));
  EXPECT_THAT(p.Links().list, ElementsAre("1 Links in B", "new"));
}

TEST_F(LinksListTest, HeaderIsSelectedAndSpokenAfterTheFill) {
  p.Read(MakePage("http://a/", "News", "", {{"one", "u"}}));
  EXPECT_EQ(p.Links().index, 0);
  EXPECT_THAT(p.Spoken(), ::testing::Contains("1 Links in News"));
}

TEST_F(LinksListTest, SelectionIsSpokenAndFocusNamesTheList) {
  Read(MakePage("http://a/", "A", "", {{"one", "u"}}));
  p.Links().SetListIndex(1);
  p.Links().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("one", "one Links List"));
}

TEST_F(LinksListTest, EnterAndDoubleClickFollowTheLink) {
  Read(MakePage("http://a/", "A", "", {{"one", "http://one/"}, {"none", ""}}));
  p.Links().index = 1;
  p.Links().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://one/"));
  EXPECT_TRUE(p.Reading().enabled);
  p.Links().DblClick.Raise();
  EXPECT_EQ(p.Browser().calls.size(), 2U);
}

TEST_F(LinksListTest, EnterOnTheHeaderReloadsThePageAndShiftEnterDoesNothing) {
  Read(MakePage("http://a/", "A", "", {{"one", "http://one/"}}));
  p.Links().index = 0;
  p.Links().Press(kKeyReturn, kShiftMask, kKeyReturn);
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  p.Links().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://a/"));
}

TEST_F(LinksListTest, LinkWithoutAddressGoesNowhere) {
  Read(MakePage("http://a/", "A", "", {{"none", ""}}));
  p.Links().index = 1;
  p.Links().DblClick.Raise();
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(LinksListTest, PageFromElsewhereCannotLeadToFilesOfThisComputer) {
  Read(MakePage("http://a/", "A", "", {{"trap", "file:///etc/passwd"}, {"here", "http://b/"}}));
  p.Links().index = 1;
  p.Links().DblClick.Raise();
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.TextPane().Text(), ::testing::HasSubstr("Address refused: file:///etc/passwd"));
  p.Links().index = 2;
  p.Links().DblClick.Raise();
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 http://b/"));
}

TEST_F(LinksListTest, FileMayLeadToAnotherFile) {
  Read(MakePage("file:///a.html", "A", "", {{"b", "file:///b.html"}}));
  p.Links().index = 1;
  p.Links().DblClick.Raise();
  EXPECT_THAT(p.Browser().calls, ElementsAre("Navigate2 file:///b.html"));
}

TEST_F(LinksListTest, ChoosingWithNothingSelectedIsReported) {
  Read(MakePage("http://a/", "A", ""));
  p.Links().index = -1;
  p.Links().DblClick.Raise();
  EXPECT_THAT(p.desktop.boxes.Texts(),
              ElementsAre("cmbListLinksDblClick Error: Subscript out of range"));
}

TEST_F(LinksListTest, EnterWhileTheListIsBeingFilledSaysSo) {
  p.Browser().calls.clear();
  bool pressed = false;
  p.desktop.on_yield = [&] {
    if (pressed || p.Links().list.size() != 2) return;
    pressed = true;
    p.Spoken();
    p.Links().Press(kKeyReturn, 0, kKeyReturn);
    EXPECT_THAT(p.Spoken(), ElementsAre("Extracting Links ..."));
  };
  p.Read(MakePage("http://a/", "A", "", {{"one", "http://1/"}, {"two", "http://2/"}}));
  EXPECT_TRUE(pressed);
  EXPECT_THAT(p.Browser().calls, IsEmpty());
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

TEST_F(LinksListTest, WaitingEventsRunBeforeEveryLink) {
  std::vector<std::pair<std::string, std::string>> links(100, {"x", "u"});
  const auto page = MakePage("http://a/", "A", "", links);
  p.Read(MakePage("http://b/", "B", ""));
  const int without = p.desktop.yields;
  p.desktop.yields = 0;
  p.Read(page);
  EXPECT_GE(p.desktop.yields, 100);
  EXPECT_LT(without, 200);
}

}  // namespace
}  // namespace corvane::tests
