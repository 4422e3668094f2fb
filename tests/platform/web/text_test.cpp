// The text of pages with their elements in it, against the real engine.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "tests/platform/web/text_fixture.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = PageSpan::Kind;

TEST_F(TextTest, HeadingsAndLinksAreFoundAtTheirPlaces) {
  Load(
      "<h1>Prices</h1><p>See <a href=/a>next week</a> or <a href=/b>next "
      "week</a>.</p><h3>End</h3>");
  EXPECT_EQ(page_->text, "Prices\n\nSee next week or next week.\n\nEnd");
  EXPECT_THAT(All(Kind::Heading), ElementsAre("Prices", "End"));
  EXPECT_EQ(First(Kind::Heading).level, 1);
  EXPECT_EQ(page_->spans.back().level, 3);
  EXPECT_THAT(All(Kind::Link), ElementsAre("next week", "next week"));
  EXPECT_EQ(page_->spans[1].start, 12);
  EXPECT_EQ(page_->spans[2].start, 25);
}

TEST_F(TextTest, BlanksAreRunTogetherAsTheyAreShown) {
  Load(
      "<p>  one \n two<b> three </b> "
      "<i>four</i>\t</p>\n<div>five<br>six</div>\n<span>seven</span>");
  EXPECT_EQ(page_->text, "one two three four\n\nfive\nsix\nseven");
}

TEST_F(TextTest, TextIsAsTheEngineShowsIt) {
  const std::string pages[] = {
      "<p>a<p>b<div>c<div>d</div></div>e",
      "<h2>a</h2><p>b</p>",
      "<pre>a  b\n  c\n</pre>d",
      "<div style='white-space:pre-wrap'> a  b \n c</div>",
      "<div>x</div><p>y</p>z<h2>h</h2>w<div><p>v</p></div><br><br>u",
      "<table><tr><td>a<td>b<tr><td>c<td>d</table>",
      "<ul><li>one<li>two</ul>",
      "<p>\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D <bdo dir=rtl>abc</bdo> \xF0\x9F\x90\x88 end",
      "<div style='display:flex'><span>a</span><span>b</span></div>c",
      "<p>a<span hidden>no</span>b<span style='display:none'>no</span>c",
      "<p>a<span style='visibility:hidden'>no<b style='visibility:visible'>yes</b></span>",
      "<p style='text-transform:uppercase'>loud",
      "a&nbsp;b<wbr>c&shy;d",
      "<div>a<!-- no --></div><script>no</script><style>no</style><template>no</template>",
  };
  for (const std::string& page : pages) {
    Load(page);
    EXPECT_EQ(page_->text, view_.Body()) << page;
  }
}

TEST_F(TextTest, FieldThatAnotherStandsForIsLeftOut) {
  Load(
      "<div><label for=old>To</label><textarea id=old tabindex=-1 "
      "style='position:absolute;left:-5000px;width:10px'>x</textarea>"
      "<ul style='list-style:none'><li><input role=combobox></ul></div>"
      "<input tabindex=-1 aria-label=Seen>");
  EXPECT_THAT(All(Kind::Edit), ElementsAre("To", "Seen"));
  EXPECT_EQ(First(Kind::Edit).facts->role, "combobox");
  EXPECT_EQ(page_->text, "To\nSeen");
}

TEST_F(TextTest, EntriesWithNothingInThemAreLeftOut) {
  Load(
      "<ul role=menu><li role=menuitem><a hidden>no</a><li role=menuitem>Cut"
      "<li role=menuitem tabindex=0></ul>");
  EXPECT_THAT(All(Kind::Widget), ElementsAre("Cut", "(field)"));
}

TEST_F(TextTest, LineEndsThatCountAreKept) {
  Load("<div style='white-space:pre-line'>a   b  \n   c</div>");
  EXPECT_EQ(page_->text, "a b\nc");
}

TEST_F(TextTest, PicturesWithWordsStandInTheText) {
  Load(
      "<p>Look:<img src=x alt='A cat'>!<img src=x alt=''><img src=x><svg role=img "
      "aria-label=Star></svg>"
      "<figure><img src=x><figcaption>A graph</figcaption></figure>");
  EXPECT_THAT(All(Kind::Picture), ElementsAre("A cat", "Star", "A graph"));
  EXPECT_TRUE(page_->text.starts_with("Look: A cat ! Star")) << page_->text;
}

TEST_F(TextTest, FieldsAndButtonsStandInTheText) {
  Load(
      "<form><label for=n>Name</label> <input id=n value=Al><button>Send</button>"
      "<label><input type=checkbox checked> Agree</label>"
      "<select aria-label=Size><option>Small<option selected>Large</select>"
      "<input type=radio aria-label=Red><textarea aria-label=Text>a\nb</textarea>"
      "<input type=password aria-label=Word value=secret><input></form>");
  EXPECT_THAT(All(Kind::Edit), ElementsAre("Name, Al", "Text, a b", "Word", "(edit)"));
  EXPECT_THAT(All(Kind::Button), ElementsAre("Send"));
  EXPECT_THAT(All(Kind::CheckBox), ElementsAre("Agree"));
  EXPECT_EQ(First(Kind::CheckBox).facts->checked, Tri::Yes);
  EXPECT_THAT(All(Kind::Choice), ElementsAre("Size, Large"));
  EXPECT_THAT(All(Kind::Radio), ElementsAre("Red"));
  EXPECT_EQ(page_->text, "Name, Al\nSend\nAgree\nSize, Large\nRed\nText, a b\nWord\n(edit)");
}

TEST_F(TextTest, ALabelWithMoreInItStands) {
  Load("<label>I accept <a href=/t>the terms</a> <input type=checkbox></label>");
  EXPECT_THAT(All(Kind::Link), ElementsAre("the terms"));
  EXPECT_THAT(All(Kind::CheckBox), ElementsAre("I accept the terms"));
}

TEST_F(TextTest, LandmarksListsTablesAndQuotationsHoldTheirContent) {
  Load(
      "<nav aria-label=Site><ul><li><a href=/>Home</a><li>News<ol "
      "start=3><li>c<li>d</ol></ul></nav>"
      "<main><blockquote>To be</blockquote>"
      "<table><caption>Prices</caption><tr><th>Day<th>Price<tr><td>Mo<td>3</table>"
      "<table><tr><td>lay<td>out</table></main>");
  EXPECT_THAT(All(Kind::List), ElementsAre("Home\nNews\nc\nd", "c\nd"));
  EXPECT_EQ(First(Kind::List).level, 2);
  EXPECT_THAT(All(Kind::Item), ElementsAre("Home", "News\nc\nd", "c", "d"));
  EXPECT_EQ(First(Kind::Item).more, 1);
  const auto last = std::find_if(page_->spans.rbegin(), page_->spans.rend(),
                                 [](const auto& span) { return span.kind == Kind::Item; });
  EXPECT_EQ(last->level, 4);
  EXPECT_EQ(First(Kind::Landmark).facts->name, "Site");
  EXPECT_EQ(First(Kind::Landmark).facts->role, "navigation");
  EXPECT_THAT(All(Kind::Quotation), ElementsAre("To be"));
  EXPECT_THAT(All(Kind::Table), ElementsAre("Prices\nDay\tPrice\nMo\t3"));
  EXPECT_EQ(First(Kind::Table).level, 2);
  EXPECT_EQ(First(Kind::Table).more, 2);
  EXPECT_EQ(First(Kind::Table).facts->name, "Prices");
}

TEST_F(TextTest, WhatIsHiddenIsNotThere) {
  Load(
      "<a href=/1 hidden>a</a><a href=/2 style='visibility:hidden'>b</a><h2 "
      "style='display:none'>c</h2>"
      "<div aria-hidden=true><a href=/3>d</a></div><div inert><button>e</button></div>"
      "<details><summary>More</summary><a href=/4>f</a></details><input type=hidden value=x>");
  EXPECT_EQ(page_->text, "More");
  EXPECT_THAT(All(Kind::Link), IsEmpty());
  EXPECT_THAT(All(Kind::Button), ElementsAre("More"));
  EXPECT_EQ(First(Kind::Button).facts->expanded, Tri::No);
}

TEST_F(TextTest, LinksWithoutTextAreCalledSomething) {
  Load(
      "<a href=/x title=Tip style='display:inline-block;width:9px;height:9px'></a>"
      "<a href=/path/page.html style='display:inline-block;width:9px;height:9px'></a>"
      "<a href=/y><img src=x alt=Home></a><a href=/z aria-label='Read about cats'>Read</a>"
      "<img src=x usemap='#m' alt=Map><map name=m><area href=/n alt=North><area href=/s "
      "alt=South></map>");
  EXPECT_THAT(All(Kind::Link),
              ElementsAre("Tip", "page.html", "Home", "Read about cats", "North", "South"));
}

TEST_F(TextTest, ShadowTreesAreReadAsTheyAreShown) {
  Load(
      "<my-card><h2 slot=title>Slotted</h2>rest</my-card><script>"
      "customElements.define('my-card', class extends HTMLElement { constructor() { super();"
      "this.attachShadow({mode: 'open'}).innerHTML ="
      "'<a href=/in>inner</a> <slot name=title></slot><p><slot></slot></p>'; } })</script>");
  EXPECT_EQ(page_->text, "inner\nSlotted\n\nrest");
  EXPECT_THAT(All(Kind::Heading), ElementsAre("Slotted"));
  EXPECT_THAT(All(Kind::Link), ElementsAre("inner"));
}

TEST_F(TextTest, LanguagesAreKnown) {
  Load("<p>A <span lang=fr>mot</span>");
  EXPECT_THAT(All(Kind::Language), ElementsAre("mot"));
  EXPECT_EQ(First(Kind::Language).facts->name, "fr");
}

TEST_F(TextTest, ThePagesOwnLanguageIsThatOfAllItsText) {
  server_.Page("/",
               "<!doctype html><html lang=de><title>A</title><p>Das <i lang=en>Team</i> spielt");
  view_.Go(server_.Url());
  Read();
  EXPECT_THAT(All(Kind::Language), ElementsAre("Das Team spielt", "Team"));
  EXPECT_EQ(page_->spans[0].facts->name, "de");
}

TEST_F(TextTest, LongLinesAreBrokenAndStillFitTheirElements) {
  std::string content = "<p>";
  for (int i = 0; i < 3000; ++i)
    content += "<a href=/>\xC3\xA9 link " + std::to_string(i) + "</a> ";
  content += std::string(9000, 'x') + "<b>b</b><a href=/>last</a>";
  Load(content);
  const auto links = All(Kind::Link);
  ASSERT_EQ(links.size(), 3001U);
  for (std::size_t i = 0; i < 3000; ++i) {
    std::string words = links[i];
    std::replace(words.begin(), words.end(), '\n', ' ');
    ASSERT_EQ(words, "\xC3\xA9 link " + std::to_string(i));
  }
  EXPECT_EQ(links.back(), "last");
}

TEST_F(TextTest, FiftyThousandLinksHaveTheirPlaces) {
  std::string content;
  for (int i = 0; i < 50'000; ++i) {
    content += "<p><a href=/" + std::to_string(i) + ">Link " + std::to_string(i) + "</a>";
  }
  Load(content);
  const auto links = All(Kind::Link);
  ASSERT_EQ(links.size(), 50'000U);
  EXPECT_EQ(links.back(), "Link 49999");
}

TEST_F(TextTest, APageCannotMakeItEndless) {
  Load(
      "<script>let d = document.body ?? document.documentElement; d = document.body;"
      "addEventListener('DOMContentLoaded', () => { let at = document.body;"
      "for (let i = 0; i < 20000; i++) at = at.appendChild(document.createElement('div'));"
      "at.textContent = 'deep'; })</script><form name=body><input name=attributes></form>shown");
  EXPECT_NE(page_->text.find("shown"), std::string::npos);
}

TEST_F(TextTest, ALinkIsFollowed) {
  server_.Page("/next", "<title>Next</title>");
  Load("<p><a href=/next>go</a>");
  Use(Kind::Link);
  EXPECT_TRUE(WaitUntil([&] { return view_->LocationURL() == server_.Url("/next"); }));
}

TEST_F(TextTest, AUseIsAClickAndTakesNoFocus) {
  Load(
      "<input type=checkbox><button onclick='this.textContent = \"done\"'>Do</button>"
      "<details><summary>More</summary>inner</details><iframe src=/inner></iframe>");
  Use(Kind::CheckBox);
  EXPECT_TRUE(Becomes("document.querySelector('input').checked", "true"));
  Use(Kind::Button);
  EXPECT_TRUE(Becomes("document.querySelector('button').textContent", "done"));
  EXPECT_EQ(InPage("document.activeElement.localName"), "body");
  view_->UseElement(page_->ElementOf(page_->spans[2]), WebBrowser::ElementUse::Use);
  EXPECT_TRUE(Becomes("document.querySelector('details').open", "true"));
  Read();
  EXPECT_NE(page_->text.find("inner"), std::string::npos);
}

TEST_F(TextTest, EnteringAFieldGivesItTheFocus) {
  Load("<p>text<p><input aria-label=Name>");
  Use(Kind::Edit, WebBrowser::ElementUse::Enter);
  EXPECT_TRUE(Becomes("document.activeElement.localName", "input"));
  EXPECT_TRUE(WaitUntil([&] { return gtk_widget_has_focus(GTK_WIDGET(view_.View())); }));
}

TEST_F(TextTest, WhatIsGoneIsToldAndTakesNoKeys) {
  Load("<p>text<button>Do</button><input aria-label=Name>");
  InPage("document.body.innerHTML = '<button>Do</button><input aria-label=Name>'");
  Use(Kind::Button);
  EXPECT_TRUE(WaitUntil([&] { return view_.Count("gone") == 1; }));
  const bool had_focus = gtk_widget_has_focus(GTK_WIDGET(view_.View()));
  Use(Kind::Edit, WebBrowser::ElementUse::Enter);
  EXPECT_TRUE(WaitUntil([&] { return view_.Count("gone") == 2; }));
  InPage("1");
  EXPECT_EQ(gtk_widget_has_focus(GTK_WIDGET(view_.View())), had_focus);
}

TEST_F(TextTest, ThePageScrollsToWhatIsRead) {
  Load("<div style='height:5000px'></div><h2>Far</h2><div style='height:5000px'></div>");
  Use(Kind::Heading, WebBrowser::ElementUse::Show);
  EXPECT_TRUE(Becomes("scrollY > 4000", "true"));
}

TEST_F(TextTest, ThePageScrollsToWordsBehindAnElement) {
  Load(
      "<h2>Far</h2><p>same words<div style='height:5000px'></div><h2>Head</h2><p>some text"
      "<div style='height:5000px'></div><p>and <i>same</i>\n words<div "
      "style='height:5000px'></div>");
  const auto scrolled = [&](const PageElement& near, const std::string& words) {
    view_->ShowWords(near, words);
  };
  scrolled(page_->ElementOf(page_->spans.at(1)), "same words");
  EXPECT_TRUE(Becomes("scrollY > 9000", "true"));
  scrolled({}, "same words");
  EXPECT_TRUE(Becomes("scrollY < 100", "true"));
  scrolled({}, "not there");
  EXPECT_TRUE(Becomes("scrollY < 100", "true"));
}

TEST_F(TextTest, ThePageScrollsToWordsThatAreSeen) {
  Load(
      "<p style='display:none'>same words<script>'same words'</script>"
      "<div style='height:5000px'></div><p>same words<div style='height:5000px'></div>");
  view_->ShowWords({}, "same words");
  EXPECT_TRUE(Becomes("scrollY > 4000", "true"));
}

TEST_F(TextTest, WhatIsSelectedInASlotIsFoundInTheText) {
  Load(
      "<p>One<div id=host>given words</div><script>"
      "host.attachShadow({mode: 'open'}).innerHTML = '<b>two</b> <slot></slot>'</script>");
  InPage("getSelection().setBaseAndExtent(host.firstChild, 6, host.firstChild, 8)");
  Read();
  ASSERT_GE(page_->selected, 0);
  EXPECT_EQ(text::mid(page_->text, static_cast<std::size_t>(page_->selected) + 1), "words");
}

TEST_F(TextTest, WhatIsSelectedIsFoundInTheText) {
  Load("<p>One <b>two</b> three<p>two");
  InPage(
      "getSelection().setBaseAndExtent(document.querySelector('p').lastChild, 2,"
      "document.querySelector('p').lastChild, 4)");
  Read();
  EXPECT_EQ(page_->selected, 9);
  InPage("getSelection().removeAllRanges()");
  Read();
  EXPECT_EQ(page_->selected, -1);
}

TEST_F(TextTest, WhatTheAddressNamesIsFoundInTheText) {
  Load(
      "<p>One<div id=host>two</div><table><tr><th>a<tr id=row><td>three</table><a "
      "name=end></a>four");
  EXPECT_EQ(page_->target, -1);
  const auto words = [&](const std::string& hash) {
    InPage("location.hash = '" + hash + "'");
    Read();
    return text::left(text::mid(page_->text, static_cast<std::size_t>(page_->target) + 1), 4);
  };
  EXPECT_EQ(words("host"), "two\n");
  EXPECT_EQ(words("row"), "thre");
  EXPECT_EQ(words("end"), "four");
}

TEST_F(TextTest, EscapeInAnElementLeadsToIt) {
  Load("<h2>Head</h2><a id=a href=/>link</a><input id=b><div id=c tabindex=0><b>box</b></div>");
  PressEscapeIn("a");
  PressEscapeIn("b");
  PressEscapeIn("c");
  EXPECT_THAT(view_.left, ElementsAre(The(Kind::Link), The(Kind::Edit), The(Kind::Place)));
}

TEST_F(TextTest, AnEscapeThatThePageUsesIsThePages) {
  Load(
      "<input id=a onkeydown='event.preventDefault()'>"
      "<input id=b onkeydown='event.stopPropagation()'>"
      "<input id=c onkeydown='document.title = this.parentNode.className = \"closed\"'>"
      "<input id=d onkeydown='a.focus()'>"
      "<dialog id=e><button id=f>In</button></dialog><div popover id=g>pop<button "
      "id=h>x</button></div>");
  for (const char* id : {"a", "b", "c", "d"}) PressEscapeIn(id);
  InPage("document.getElementById('e').showModal()");
  PressEscapeIn("f");
  InPage("document.getElementById('g').showPopover()");
  PressEscapeIn("h");
  EXPECT_THAT(view_.left, IsEmpty());
}

TEST_F(TextTest, APageCannotPressEscapeItself) {
  Load("<input id=a autofocus>");
  view_.Focus();
  InPage(
      "document.getElementById('a').dispatchEvent(new KeyboardEvent('keydown', {key: 'Escape',"
      "bubbles: true}))");
  InPage("window.later = 0; setTimeout(() => later = 1, 100)");
  ASSERT_TRUE(Becomes("later", "1"));
  EXPECT_THAT(view_.left, IsEmpty());
}

TEST_F(TextTest, AnElementIsTheSameWhenThePageIsReadAgain) {
  Load("<p>one</p><a href=/>link</a>");
  const PageElement before = page_->ElementOf(First(Kind::Link));
  view_.EvaluateInPage("document.querySelector('p').textContent = 'much more'");
  Read();
  EXPECT_EQ(page_->ElementOf(First(Kind::Link)), before);
}

TEST_F(TextTest, SignsStandThereWithTheirTips) {
  Load(
      "<style>i {display: inline-block; width: 9px; height: 9px}</style>"
      "<p><i title=Unread></i> Hello <i aria-label=Starred title=x></i><i title=Never "
      "style='display: none'></i>"
      "<i title=Flat style='width: 0'></i> <b title=Tip>word</b>"
      "<style>u:before {content: '\\2713'; float: left}</style><u title=Done></u>");
  EXPECT_EQ(page_->text, "Unread Hello Starred word Done");
}

}  // namespace
}  // namespace corvane::desktop
