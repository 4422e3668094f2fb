// What elements are called, and what they are, against the real engine.
#include "tests/platform/web/facts_fixture.h"

namespace corvane::desktop {
namespace {

struct Case {
  const char* content;  // the element asked about has the id t
  const char* name;
};

// All on one page, each in an element of its own with ids of its own: the letters
// "t" and "x" to "z" in id and the attributes that refer to them get a number.
constexpr Case kNames[] = {
    {"<button id=t>Send</button>", "Send"},
    {"<button id=t><img src='' alt='Send it'></button>", "Send it"},
    {"<button id=t><svg><title>Close</title></svg></button>", "Close"},
    {"<button id=t aria-label='Close'>x</button>", "Close"},
    {"<button id=t aria-label=' '>Text</button>", "Text"},
    {"<button id=t aria-labelledby='x y'>no</button><b id=x>Delete</b><i id=y>page</i>",
     "Delete page"},
    {"<button id=t aria-label='Delete' aria-labelledby='t x'></button><b id=x>a.txt</b>",
     "Delete a.txt"},
    {"<button id=t aria-labelledby=x>own</button><b id=x hidden>Hidden name</b>", "Hidden name"},
    {"<button id=t aria-labelledby=x>own</button><b id=x aria-labelledby=y>seen</b><b id=y>no</b>",
     "seen"},
    {"<button id=t aria-labelledby=missing>own</button>", "own"},
    {"<button id=t title=Tip></button>", "Tip"},
    {"<button id=t><span hidden>no</span>yes<span style='display:none'>no</span></button>", "yes"},
    {"<button id=t><span aria-hidden=true>no</span>yes</button>", "yes"},
    {"<button id=t><span style='visibility:hidden'>no</span>yes</button>", "yes"},
    {"<button id=t><b>bo</b><i>th</i></button>", "both"},
    {"<button id=t><div>one</div><div>two</div></button>", "one two"},
    {"<button id=t>one<br>two</button>", "one two"},
    {"<button id=t class=dressed>mid</button>", "pre mid post"},
    {"<button id=t class=icon></button>", "Star"},
    {"<button id=t><span style='display:contents'>inner</span></button>", "inner"},
    {"<a id=t href=/x><img src='' alt='Front page'></a>", "Front page"},
    {"<a id=t href=/x aria-label='Read more about cats'>Read more</a>", "Read more about cats"},
    {"<a id=t href=/x title='Only a title'></a>", "Only a title"},
    {"<label for=t>Your name</label><input id=t>", "Your name"},
    {"<label>Your <b>name</b> <input id=t value=Ann></label>", "Your name"},
    {"<label for=t>One</label><label for=t>Two</label><input id=t>", "One Two"},
    {"<label for=t aria-label='By label'>shown</label><input id=t>", "By label"},
    {"<label for=t>Flash <input id=z value=3> times</label><input type=checkbox id=t>",
     "Flash 3 times"},
    {"<label for=t>Volume <span role=slider aria-valuenow=7 aria-valuetext=low></span> of ten"
     "</label><input type=checkbox id=t>",
     "Volume low of ten"},
    {"<label for=t>Pick <select><option>a<option selected>bee</select> now</label>"
     "<input type=checkbox id=t>",
     "Pick bee now"},
    {"<input id=t placeholder='Search here'>", "Search here"},
    {"<input id=t title=Titled placeholder=Hint>", "Titled"},
    {"<input id=t type=submit>", "Submit"},
    {"<input id=t type=reset>", "Reset"},
    {"<input id=t type=submit value='Log in'>", "Log in"},
    {"<input id=t type=image alt=Go src=''>", "Go"},
    {"<img id=t alt='A cat' src=''>", "A cat"},
    {"<img id=t src='' title='No alt'>", "No alt"},
    {"<fieldset id=t><legend>Address</legend><input></fieldset>", "Address"},
    {"<table id=t><caption>Prices</caption><tr><td>1</table>", "Prices"},
    {"<figure id=t><img alt='' src=''><figcaption>A graph</figcaption></figure>", "A graph"},
    {"<details><summary id=t>More</summary>hidden</details>", "More"},
    {"<div role=option id=t>An <em>option</em></div>", "An option"},
    {"<div role=tab id=t><span>First</span></div>", "First"},
    {"<div role=treeitem id=t aria-owns=x>Own</div><span id=x>Owned</span>", "Own Owned"},
    {"<div role=dialog id=t aria-labelledby=x><h2 id=x>Delete?</h2>text</div>", "Delete?"},
    {"<div role=dialog id=t>text is no name</div>", ""},
    {"<div role=group id=t>text is no name</div>", ""},
    {"<div tabindex=0 id=t>A box to focus</div>", "A box to focus"},
    {"<iframe id=t title='An advert' src=about:blank></iframe>", "An advert"},
    {"<h2 id=t>Head<!-- no -->ing</h2>", "Heading"},
    {"<nav id=t aria-label=Main>links</nav>", "Main"},
    {"<div contenteditable id=t aria-label=Letter>Dear</div>", "Letter"},
    {"<div role=button id=t tabindex=0>  spa \n ces  </div>", "spa ces"},
    {"<my-card id=t role=button tabindex=0></my-card>", "in the shade"},
    {"<slot-card><button id=t>slotted</button></slot-card>", "slotted"},
};

std::string Numbered(std::string content, std::size_t number) {
  const std::string suffix = std::to_string(number);
  for (const char* attribute : {"id=", "for=", "aria-labelledby=", "aria-owns="}) {
    for (const char* id : {"t", "x", "y", "z"}) {
      const std::string plain = std::string(attribute) + id;
      for (auto at = content.find(plain); at != std::string::npos;
           at = content.find(plain, at + 1)) {
        const char next = content[at + plain.size()];
        if (next == ' ' || next == '>') content.insert(at + plain.size(), suffix);
      }
    }
  }
  for (const auto& [from, to] : {std::pair{"'x y'", "'x# y#'"}, std::pair{"'t x'", "'t# x#'"}}) {
    if (const auto at = content.find(from); at != std::string::npos) {
      std::string ids = to;
      for (auto mark = ids.find('#'); mark != std::string::npos; mark = ids.find('#'))
        ids.replace(mark, 1, suffix);
      content.replace(at, 5, ids);
    }
  }
  return content;
}

class NamesTest : public FactsTest {};

TEST_F(NamesTest, AreThoseThatBrowsersShare) {
  std::string page =
      "<style>.dressed::before{content:'pre '}.dressed::after{content:' post'}"
      ".icon::before{content:'\\2605' / 'Star'}</style>"
      "<script>customElements.define('my-card', class extends HTMLElement {"
      "constructor() { super(); this.attachShadow({mode: 'open'}).innerHTML = '<b>in the "
      "shade</b>'; }});"
      "customElements.define('slot-card', class extends HTMLElement {"
      "constructor() { super(); this.attachShadow({mode: 'open'}).innerHTML = "
      "'<div><slot></slot></div>';"
      "}});</script>";
  for (std::size_t i = 0; i < std::size(kNames); ++i)
    page += "<div>" + Numbered(kNames[i].content, i) + "</div>\n";
  Load(page);
  for (std::size_t i = 0; i < std::size(kNames); ++i)
    EXPECT_EQ(NameOf("#t" + std::to_string(i)), kNames[i].name) << kNames[i].content;
}

TEST_F(NamesTest, DescriptionsStandBehindTheName) {
  Load(
      "<button id=a aria-describedby='x y'>Send</button><p id=x>cannot be</p><p id=y "
      "hidden>undone</p>"
      "<button id=b aria-description=Said>B</button><button id=c title=Tip>C</button>"
      "<button id=d title=Tip></button><input id=e aria-label=Mail placeholder='a@b.c'>"
      "<button id=f aria-label=Same title=Same></button>");
  EXPECT_EQ(DescriptionOf("#a"), "cannot be undone");
  EXPECT_EQ(DescriptionOf("#b"), "Said");
  EXPECT_EQ(DescriptionOf("#c"), "Tip");
  EXPECT_EQ(DescriptionOf("#d"), "");
  EXPECT_EQ(DescriptionOf("#e"), "a@b.c");
  EXPECT_EQ(DescriptionOf("#f"), "");
}

TEST_F(NamesTest, RolesAreTheGivenOnesElseThoseOfTheElement) {
  Load(
      "<a id=link href=/x>l</a><a id=none>n</a><button id=b>b</button><button id=tab "
      "role=tab>t</button>"
      "<input id=check type=checkbox><input id=sw type=checkbox switch><input id=range type=range>"
      "<input id=num type=number><input id=search type=search><input id=text><input id=list list=l>"
      "<datalist id=l><option>1</datalist><select id=combo><option>1</select>"
      "<select id=multi multiple><option>1</select><select id=tall size=4><option>1</select>"
      "<details><summary id=sum>s</summary></details><div id=edit contenteditable>e</div>"
      "<div id=two role='fancy button'>2</div><button id=pres role=presentation>p</button>"
      "<img id=deco alt=''><section id=plain>s</section><section id=reg aria-label=R>s</section>"
      "<header id=banner>h</header><article><header id=inner>h</header></article>"
      "<table><tr><th id=col>c<th>d<tr><th id=row>r<td id=cell>1</table><video id=v "
      "controls></video>"
      "<svg><a id=svga href=/y><text>x</text></a></svg>");
  const std::pair<const char*, const char*> expected[] = {
      {"#link", "link"},         {"#none", ""},          {"#b", "button"},
      {"#tab", "tab"},           {"#check", "checkbox"}, {"#sw", "switch"},
      {"#range", "slider"},      {"#num", "spinbutton"}, {"#search", "searchbox"},
      {"#text", "textbox"},      {"#list", "combobox"},  {"#combo", "combobox"},
      {"#multi", "listbox"},     {"#tall", "listbox"},   {"#sum", "summary"},
      {"#edit", "textbox"},      {"#two", "button"},     {"#pres", "button"},
      {"#deco", "presentation"}, {"#plain", ""},         {"#reg", "region"},
      {"#banner", "banner"},     {"#inner", ""},         {"#col", "columnheader"},
      {"#row", "rowheader"},     {"#cell", "cell"},      {"#v", "video"},
      {"#svga", "link"},
  };
  for (const auto& [selector, role] : expected) EXPECT_EQ(RoleOf(selector), role) << selector;
}

TEST_F(NamesTest, PicturesOfAFontAreNoWords) {
  Load(
      "<style>#a::before {content: '\\f044 '} #b::before {content: '\\f0d7'}</style>"
      "<a href=# id=a>Compose</a><a href=# id=b title=More></a><button id=c>&#xf1f8;</button>");
  EXPECT_EQ(NameOf("#a"), "Compose");
  EXPECT_EQ(NameOf("#b"), "More");
  EXPECT_EQ(NameOf("#c"), "");
}

TEST_F(NamesTest, WordsThatAreHiddenForWantOfRoomAreBetterThanNone) {
  Load(
      "<style>.words {display: none}</style>"
      "<a href=# id=link><span class=words>Compose</span></a>"
      "<button id=icon><svg><style>.a{}</style></svg><span class=words>Settings</span></button>"
      "<button id=tip title=Tip><span class=words>no</span></button>"
      "<button id=kept><span class=words aria-hidden=true>no</span></button>"
      "<button id=sign><span title=Unread></span>Soup</button>"
      "<div role=dialog id=dialog><span class=words>no</span></div>");
  EXPECT_EQ(NameOf("#link"), "Compose");
  EXPECT_EQ(NameOf("#icon"), "Settings");
  EXPECT_EQ(NameOf("#tip"), "Tip");
  EXPECT_EQ(NameOf("#kept"), "");
  EXPECT_EQ(NameOf("#sign"), "Unread Soup");
  EXPECT_EQ(NameOf("#dialog"), "");
  ASSERT_EQ(view_.Document()->links.size(), 1U);
  EXPECT_EQ(view_.Document()->links[0]->label, "Compose");
}

TEST_F(NamesTest, FieldThatStandsForAnotherHasItsLabel) {
  Load(
      "<div><label for=old>To</label><div><ul><li><input id=new role=combobox></li></ul>"
      "<textarea id=old tabindex=-1></textarea></div></div>"
      "<div><label for=gone>Town</label><input id=gone hidden><div id=box role=combobox "
      "tabindex=0></div></div>"
      "<div><label for=other>Other</label><input id=other><input id=alone></div>"
      "<div><label for=a hidden>A</label><label for=b>B</label><input id=a hidden><input id=b "
      "hidden><input id=two></div>");
  EXPECT_EQ(NameOf("#new"), "To");
  EXPECT_EQ(NameOf("#box"), "Town");
  EXPECT_EQ(NameOf("#alone"), "") << "the labelled field is there itself";
  EXPECT_EQ(NameOf("#two"), "") << "it could be either";
}

TEST_F(NamesTest, HostilePagesAreBounded) {
  Load(
      "<button id=self aria-labelledby=self>own</button>"
      "<b id=a aria-owns=b>A</b><b id=b aria-owns=a>B</b><button id=cycle aria-labelledby='a "
      "b'></button>"
      "<div id=deep role=button></div><button id=long></button>"
      "<form id=form role=group aria-label=Form><input name=getAttribute><input name=parentNode>"
      "<input name=firstChild><input name=localName><input name=matches><button "
      "id=inside>in</button></form>"
      "<script>let at = deep; for (let i = 0; i < 3000; i++) at = at.appendChild("
      "document.createElement('span')); at.textContent = 'x';"
      "long.textContent = 'y'.repeat(3e6);</script>");
  EXPECT_EQ(NameOf("#self"), "own");
  EXPECT_EQ(NameOf("#cycle"), "A B B A");
  EXPECT_EQ(NameOf("#deep"), "");
  EXPECT_EQ(NameOf("#long").size(), 1000U);
  EXPECT_EQ(NameOf("#inside"), "in");
  EXPECT_EQ(FactsOf("#inside")["groups"][0][2], "Form");
}

}  // namespace
}  // namespace corvane::desktop
