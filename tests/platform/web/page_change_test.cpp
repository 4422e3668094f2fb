// Pages whose scripts change them in place, against the real engine.
#include <gmock/gmock.h>

#include "tests/platform/web/page_harness.h"

namespace corvane::desktop {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const char* const kChanged = "The page has changed. F9 reads it again.";
const char* const kLongText = "Much that was not here before, a sentence or two of it.";

class PageChangeTest : public PageTest {
 protected:
  void Load(const std::string& content) {
    server_.Page("/", "<title>A</title>" + content);
    view_.Go(server_.Url());
    view_.log.clear();
    view_.Focus();
  }
  void PressFirst(guint key = GDK_KEY_Return) {
    view_.Key(GDK_KEY_Tab);
    view_.Key(key);
  }
  bool Hears(const std::string& words) {
    return WaitUntil([&] { return view_.Count("say " + words) > 0; });
  }
  /// Waits until the page has been read again.
  bool IsReadAgain() {
    return WaitUntil([&] { return view_.Count("complete") > 0; });
  }
};

TEST_F(PageChangeTest, ALinkThatShowsAnotherPageInPlaceHasItRead) {
  Load(
      "<p id=p>Old</p><a href='/other'>Other</a><script>document.links[0].onclick = event => {"
      "event.preventDefault(); history.pushState({}, '', '/other');"
      "setTimeout(() => { document.title = 'B'; p.textContent = 'New'; }, 200) }</script>");
  PressFirst();
  ASSERT_TRUE(IsReadAgain());
  EXPECT_THAT(view_.EventsWithoutStatus(), ElementsAre("begin", "complete"));
  EXPECT_EQ(view_.Document()->Title, "B");
  EXPECT_THAT(view_.Body(), HasSubstr("New"));
  EXPECT_EQ(view_->LocationURL(), server_.Url("/other"));
}

TEST_F(PageChangeTest, AnAddressBehindANumberSignMayBeAnotherPage) {
  Load(
      "<p id=p>Old</p><a href='#/inbox'>Inbox</a>"
      "<script>onhashchange = () => { p.textContent = 'Inbox' }</script>");
  PressFirst();
  ASSERT_TRUE(IsReadAgain());
  EXPECT_THAT(view_.Body(), HasSubstr("Inbox"));
}

TEST_F(PageChangeTest, BackWithinThePageHasItRead) {
  Load(
      "<p id=p>Old</p><a href='/other'>Other</a><script>document.links[0].onclick = event => {"
      "event.preventDefault(); history.pushState({}, '', '/other'); p.textContent = 'New' };"
      "onpopstate = () => { p.textContent = 'Old' }</script>");
  PressFirst();
  ASSERT_TRUE(IsReadAgain());
  view_.log.clear();
  view_->GoBack();
  ASSERT_TRUE(IsReadAgain());
  EXPECT_THAT(view_.Body(), HasSubstr("Old"));
  EXPECT_EQ(view_->LocationURL(), server_.Url());
}

TEST_F(PageChangeTest, AHiddenPartThatAButtonShowsIsNamedByItsWords) {
  Load(
      "<style>.off{display:none}</style><button onclick='p.className=\"\"'>Find</button>"
      "<div id=q class=off>Never</div><div id=p class=off><b>Find a town</b><p>More</div>");
  PressFirst();
  ASSERT_TRUE(Hears("Opened: Find a town"));
}

TEST_F(PageChangeTest, AHiddenFieldWithoutWordsIsNamedByWhatItsAuthorCallsIt) {
  Load(
      "<button onclick='p.hidden=false'>Find</button><div id=p hidden>"
      "<input placeholder='Search this site'></div>");
  PressFirst(GDK_KEY_space);
  ASSERT_TRUE(Hears("Opened: Search this site"));
}

TEST_F(PageChangeTest, ANewPartWithAFieldIsNamed) {
  Load("<button onclick='p.innerHTML=\"<label>Your town <input></label>\"'>Find</button><p id=p>");
  PressFirst();
  ASSERT_TRUE(Hears("Opened: Your town"));
}

TEST_F(PageChangeTest, NothingIsInventedOfWhatStaysHiddenOrHasNoWords) {
  Load(
      "<button onclick='p.hidden=false;this.title=1'>Find</button><div id=p hidden><hr></div>"
      "<div hidden>Never</div>");
  PressFirst();
  ASSERT_TRUE(WaitUntil([&] {
    return view_.EvaluateInPage("String(document.querySelector('button').title)") == "1";
  }));
  view_.EvaluateInPage("new Promise(done => setTimeout(done, 2500))");
  EXPECT_THAT(view_.Said(), IsEmpty());
}

TEST_F(PageChangeTest, APartThatTakesTheFocusIsHeardByThatAlone) {
  Load(
      "<button onclick='p.hidden=false;p.firstChild.focus()'>Find</button>"
      "<div id=p hidden><input placeholder=Search></div>");
  PressFirst();
  ASSERT_TRUE(WaitUntil(
      [&] { return view_.EvaluateInPage("String(document.activeElement.localName)") == "input"; }));
  view_.EvaluateInPage("new Promise(done => setTimeout(done, 1500))");
  EXPECT_THAT(view_.Said(), IsEmpty());
}

TEST_F(PageChangeTest, APartThatAppearsByItselfIsNotNamed) {
  Load("<div id=p hidden>Buy this</div>");
  view_.RunByItself("p.hidden = false");
  view_.EvaluateInPage("new Promise(done => setTimeout(done, 1500))");
  EXPECT_THAT(view_.Said(), IsEmpty());
}

TEST_F(PageChangeTest, APageThatMovesByItselfIsNotRead) {
  Load("<p>Text</p><a href='/'>Here</a>");
  view_.RunByItself("history.pushState({}, '', '/other'); document.body.append('" +
                    std::string(kLongText) + "')");
  ASSERT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/other"); }));
  view_.EvaluateInPage("new Promise(done => setTimeout(done, 900))");
  EXPECT_THAT(view_.EventsWithoutStatus(), IsEmpty());
}

TEST_F(PageChangeTest, ALinkWithinThePageSaysWhereItLeads) {
  Load("<a href='#terms'>Terms</a><p>Between</p><h2 id=terms>All <b>terms</b></h2><p>Text</p>");
  PressFirst();
  EXPECT_TRUE(Hears("All terms"));
  view_.log.clear();
  view_.EvaluateInPage("document.links[0].focus()");
  view_.Key(GDK_KEY_Return);
  EXPECT_TRUE(Hears("All terms")) << "also the second time";
  EXPECT_THAT(view_.EventsWithoutStatus(), IsEmpty());
}

TEST_F(PageChangeTest, APlaceWithoutWordsSaysThoseBehindIt) {
  Load("<a href='#x'>Go</a><p>Between</p><a name=x></a><p> </p><p hidden>Unseen</p><p>Behind</p>");
  PressFirst();
  EXPECT_TRUE(Hears("Behind"));
}

TEST_F(PageChangeTest, ALinkToTheTopSaysSo) {
  Load("<p>Text</p><a href='#'>Up</a>");
  PressFirst();
  EXPECT_TRUE(Hears("Top of the page"));
}

TEST_F(PageChangeTest, APlaceThatTakesTheFocusIsLeftToIt) {
  Load("<a href='#x'>Go</a><p>Between</p><input id=x>");
  PressFirst();
  view_.EvaluateInPage("new Promise(done => setTimeout(done, 300))");
  EXPECT_THAT(view_.Said(), IsEmpty());
}

TEST_F(PageChangeTest, APlaceTellsHowMuchTextStandsInFrontOfIt) {
  Load(
      "<script>//not shown</script><a href='#x'>Go to</a> <p hidden>Unseen</p>"
      "<p>T\xC3\xA4xt &#x1D4B6;&nbsp;b</p><div>a <b>bc</b><h2 id=x>Here</h2></div><p>Behind</p>");
  PressFirst();
  ASSERT_TRUE(Hears("Here"));
  ASSERT_EQ(view_.places.size(), 1U);
  EXPECT_EQ(view_.places[0].before, std::string("Goto"
                                                "T.xt"
                                                ".b"
                                                "abc")
                                        .size());
}

TEST_F(PageChangeTest, TheProgramGoesToAPlaceAsItsLinkWould) {
  Load(
      "<a href='#x'>Go</a><p>Between</p><h2 id=x>Here</h2>"
      "<script>let clicks = 0; document.links[0].onclick = () => clicks++</script>");
  EXPECT_TRUE(view_->GoToPlace(server_.Url() + "#x"));
  ASSERT_TRUE(Hears("Here"));
  EXPECT_THAT(view_.EventsWithoutStatus(), IsEmpty()) << "nothing is loaded or read";
  EXPECT_EQ(view_.places.at(0).before, std::string("GoBetween").size());
  EXPECT_EQ(view_.EvaluateInPage("location.hash + ' ' + clicks"), "#x 1");
  EXPECT_TRUE(view_->GoToPlace(server_.Url() + "#x"));
  EXPECT_TRUE(WaitUntil([&] { return view_.Count("say Here") == 2; })) << "also the second time";
}

TEST_F(PageChangeTest, TheProgramGoesToAPlaceThatNoLinkOfThePageLeadsTo) {
  Load("<p>Between</p><h2 id=x>Here</h2>");
  EXPECT_TRUE(view_->GoToPlace(server_.Url() + "#x"));
  EXPECT_TRUE(Hears("Here"));
  EXPECT_EQ(view_.EvaluateInPage("location.hash"), "#x");
}

TEST_F(PageChangeTest, AFieldThatThePageCannotNameWhileTheFocusIsElsewhereIsSaid) {
  Load("<p>Between</p><input id=x><p>Behind</p>");
  auto* other = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_widget_show_all(other);
  gtk_window_present(GTK_WINDOW(other));
  ASSERT_TRUE(WaitUntil([&] { return view_.EvaluateInPage("document.hasFocus()") == "false"; }));
  EXPECT_TRUE(view_->GoToPlace(server_.Url() + "#x"));
  EXPECT_TRUE(Hears("Behind"));
  gtk_widget_destroy(other);
}

TEST_F(PageChangeTest, APlaceThatIsNotThereIsSaidToBeMissing) {
  Load("<a href='#gone'>Go</a><p>Text</p>");
  EXPECT_TRUE(view_->GoToPlace(server_.Url() + "#gone"));
  EXPECT_TRUE(Hears("There is no such place in the page"));
  EXPECT_THAT(view_.places, IsEmpty());
}

TEST_F(PageChangeTest, OtherAddressesAreNoPlaces) {
  Load("<p id=x>Text</p>");
  for (const std::string& address :
       {server_.Url(), server_.Url("/other#x"), server_.Url() + "#/x", server_.Url() + "#!x"}) {
    EXPECT_FALSE(view_->GoToPlace(address)) << address;
  }
}

TEST_F(PageChangeTest, APageThatRunsNoScriptsHasPlacesToo) {
  server_.Page("/", "<title>A</title><a href='#x'>Go</a><p id=x>Here</p>", "text/html",
               {{"Content-Security-Policy", "sandbox"}});
  view_.Go(server_.Url());
  view_.log.clear();
  EXPECT_TRUE(view_->GoToPlace(server_.Url() + "#x"));
  EXPECT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url() + "#x"; }));
  // Some such documents have this part of the page scripts, others are read again.
  EXPECT_TRUE(WaitUntil([&] { return view_.Count("say Here") + view_.Count("complete") > 0; }));
}

TEST_F(PageChangeTest, MuchNewTextIsTold) {
  Load(
      "<button>More</button><div id=d></div><script>document.querySelector('button').onclick ="
      "() => setTimeout(() => { d.textContent = '" +
      std::string(kLongText) + "' }, 100)</script>");
  PressFirst(GDK_KEY_space);
  ASSERT_TRUE(Hears(kChanged));
  view_->Do(WebBrowser::PageCommand::ReadAgain);
  ASSERT_TRUE(IsReadAgain());
  EXPECT_THAT(view_.Body(), HasSubstr(kLongText));
  EXPECT_EQ(view_.Count("say " + std::string(kChanged)), 1);
}

TEST_F(PageChangeTest, WhatOpensAroundTheFocusSaysSo) {
  Load(
      "<ul><li role=treeitem aria-expanded=false><span tabindex=0>Songs</span></ul><script>"
      "const item = document.querySelector('li'); item.onkeydown = (event) => { if (event.key "
      "=== ' ') item.ariaExpanded = item.ariaExpanded === 'false' }</script>");
  PressFirst(GDK_KEY_space);
  EXPECT_TRUE(Hears("expanded"));
  view_.Key(GDK_KEY_space);
  EXPECT_TRUE(Hears("collapsed"));
}

TEST_F(PageChangeTest, WhatHadTheFocusAndIsGoneLeavesNobodyInSilence) {
  Load("<button onclick='this.remove()'>Vanish</button><p>Text");
  PressFirst(GDK_KEY_space);
  EXPECT_TRUE(Hears("What had the focus is gone"));
}

TEST_F(PageChangeTest, APageThatComesEmptyIsReadWhenItIsFilled) {
  server_.Page("/",
               "<title>A</title><div id=root>Loading...</div><script>setTimeout(() => {"
               "root.textContent = 'Here it is' }, 700)</script>");
  view_.Go(server_.Url());
  EXPECT_THAT(view_.Body(), HasSubstr("Here it is"));
  EXPECT_EQ(view_.Count("complete"), 1);
}

TEST_F(PageChangeTest, APageThatStaysEmptyIsReadAsItIs) {
  server_.Page("/",
               "<title>A</title><script>setInterval(() => { document.title += '.' }, 50)</script>");
  view_.Go(server_.Url());
  EXPECT_EQ(view_.Body(), "");
  EXPECT_THAT(view_.Document()->Title, HasSubstr("A"));
}

}  // namespace
}  // namespace corvane::desktop
