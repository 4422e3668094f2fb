// States, values, places and groups of elements, against the real engine.
#include "tests/platform/web/facts_fixture.h"

namespace corvane::desktop {
namespace {

using Json = nlohmann::json;

class ElementFactsTest : public FactsTest {
 protected:
  Json Fact(const std::string& selector, const char* key) {
    return FactsOf(selector).value(key, Json());
  }
  /// The roles and names of the groups that an element lies in.
  std::vector<std::string> Groups(const std::string& selector) {
    std::vector<std::string> groups;
    const Json told = FactsOf(selector).value("groups", Json::array());
    for (const Json& group : told)
      groups.push_back(group[1].get<std::string>() + " " + group[2].get<std::string>());
    return groups;
  }
};

TEST_F(ElementFactsTest, StatesAreThoseThatHold) {
  Load(
      "<input id=c type=checkbox checked><input id=m type=checkbox><div id=r role=radio></div>"
      "<div id=s role=switch aria-checked=true></div><button id=p aria-pressed=mixed>p</button>"
      "<button id=e aria-expanded=false aria-haspopup=true>e</button><div id=o role=option "
      "aria-selected=true>o</div><input id=q required><input id=d disabled><input id=w readonly>"
      "<a id=n href=/x aria-current=page>n</a><div id=i role=textbox aria-invalid=true "
      "aria-errormessage=x></div><b id=x>Too short</b><fieldset disabled><button id=f>f</button>"
      "</fieldset><details><summary id=y>y</summary></details><table><tr><th id=h "
      "aria-sort=descending>"
      "h</table><div role=listbox id=b aria-multiselectable=true></div><script>m.indeterminate = "
      "true"
      "</script>");
  EXPECT_EQ(Fact("#c", "checked"), "true");
  EXPECT_EQ(Fact("#m", "checked"), "mixed");
  EXPECT_EQ(Fact("#r", "checked"), "false");
  EXPECT_EQ(Fact("#s", "checked"), "true");
  EXPECT_EQ(Fact("#p", "pressed"), "mixed");
  EXPECT_EQ(Fact("#e", "expanded"), "false");
  EXPECT_EQ(Fact("#e", "popup"), "menu");
  EXPECT_EQ(Fact("#o", "selected"), "true");
  EXPECT_EQ(Fact("#q", "required"), true);
  EXPECT_EQ(Fact("#q", "invalid"), Json()) << "nobody has typed anything yet";
  EXPECT_EQ(Fact("#d", "disabled"), true);
  EXPECT_EQ(Fact("#w", "readonly"), true);
  EXPECT_EQ(Fact("#n", "current"), "page");
  EXPECT_EQ(Fact("#i", "invalid"), true);
  EXPECT_EQ(Fact("#i", "error"), "Too short");
  EXPECT_EQ(Fact("#f", "disabled"), true);
  EXPECT_EQ(Fact("#y", "expanded"), "false");
  EXPECT_EQ(Fact("#h", "sort"), "descending");
  EXPECT_EQ(Fact("#b", "multiple"), true);
}

TEST_F(ElementFactsTest, TheLanguageIsThatOfTheNearestThatHasOne) {
  Load(
      "<div lang=de><button id=a>Ja</button><p lang=''><button id=b lang=fr>Oui</button></p></div>"
      "<button id=c>Yes</button>");
  EXPECT_EQ(Fact("#a", "language"), "de");
  EXPECT_EQ(Fact("#b", "language"), "fr");
  EXPECT_EQ(Fact("#c", "language"), Json());
}

TEST_F(ElementFactsTest, ValuesAreThoseForTheEar) {
  Load(
      "<div id=a role=slider aria-valuenow=42></div><div id=b role=slider aria-valuenow=2 "
      "aria-valuetext=Tuesday></div><input id=c type=range min=0 max=10 value=7><progress id=d "
      "max=4 "
      "value=1></progress><div id=e role=progressbar aria-valuenow=30 aria-valuemin=0 "
      "aria-valuemax=60>"
      "</div><select id=f><option>One<option selected>Two</select><input id=g type=password "
      "value=secret><input id=h value=text><progress id=i></progress><video id=v></video>");
  EXPECT_EQ(Fact("#a", "value"), "42");
  EXPECT_EQ(Fact("#b", "value"), "Tuesday");
  EXPECT_EQ(Fact("#c", "value"), "7");
  EXPECT_EQ(Fact("#d", "value"), "25 percent");
  EXPECT_EQ(Fact("#e", "value"), "50 percent");
  EXPECT_EQ(Fact("#f", "value"), "Two");
  EXPECT_EQ(Fact("#g", "value"), Json()) << "a password is not told";
  EXPECT_EQ(Fact("#h", "value"), "text");
  EXPECT_EQ(Fact("#i", "value"), Json());
  EXPECT_EQ(Fact("#v", "value"), "paused");
}

TEST_F(ElementFactsTest, PlacesCountTheLikeInTheSameHolder) {
  Load(
      "<div role=tablist><div role=tab>1</div><div><div role=tab id=tab>2</div></div>"
      "<div role=tab>3</div><div role=tab hidden>4</div></div>"
      "<div role=listbox><div role=group><div role=option>a</div><div role=option "
      "id=opt>b</div></div>"
      "<div role=option>c</div></div>"
      "<div role=menu><div role=menuitem>x</div><div role=separator></div><div "
      "role=menuitemcheckbox "
      "id=item>y</div><div role=none><div role=menuitem>z</div><div role=menu><div role=menuitem "
      "id=sub>in</div></div></div></div>"
      "<form><input type=radio name=r><input type=radio name=r id=radio><input type=radio "
      "name=q></form>"
      "<ul role=tree><li role=treeitem>1<ul role=group><li role=treeitem>1.1<li role=treeitem "
      "id=leaf>1.2"
      "</ul><li role=treeitem id=two>2</ul>"
      "<div role=option id=said aria-posinset=5 aria-setsize=90>s</div>"
      "<select id=sel><option>1<option selected>2<option>3</select>"
      "<div role=radiogroup><div role=radio id=first>1</div><div role=radio>2</div></div>");
  const auto place = [&](const char* selector) {
    const Json facts = FactsOf(selector);
    return std::to_string(facts.value("place", 0)) + " of " +
           std::to_string(facts.value("size", 0));
  };
  EXPECT_EQ(place("#tab"), "2 of 3");
  EXPECT_EQ(place("#opt"), "2 of 3");
  EXPECT_EQ(place("#item"), "2 of 3");
  EXPECT_EQ(place("#sub"), "1 of 1");
  EXPECT_EQ(place("#radio"), "2 of 2");
  EXPECT_EQ(place("#leaf"), "2 of 2");
  EXPECT_EQ(place("#two"), "2 of 2");
  EXPECT_EQ(place("#said"), "5 of 90");
  EXPECT_EQ(place("#sel"), "2 of 3");
  EXPECT_EQ(place("#first"), "1 of 2");
  EXPECT_EQ(Fact("#leaf", "level"), 2);
  EXPECT_EQ(Fact("#two", "level"), 1);
}

TEST_F(ElementFactsTest, GroupsAreNamedFromTheOutside) {
  Load(
      "<main aria-label=Shop><form aria-label=Order><fieldset><legend>Size</legend><input id=a "
      "type=radio name=r></fieldset><fieldset><input id=b></fieldset></form></main>"
      "<nav><ul><li><a id=c href=/x>l</a></ul></nav><div role=dialog aria-label='Delete file?'>"
      "<button id=d>Yes</button></div>");
  EXPECT_THAT(Groups("#a"), testing::ElementsAre("main Shop", "form Order", "group Size"));
  EXPECT_THAT(Groups("#b"), testing::ElementsAre("main Shop", "form Order"));
  EXPECT_THAT(Groups("#c"), testing::ElementsAre("navigation "));
  EXPECT_THAT(Groups("#d"), testing::ElementsAre("dialog Delete file?"));
}

TEST_F(ElementFactsTest, CellsKnowTheirRowAndColumn) {
  Load(
      "<table><caption>Prices</caption><tr><th>a<th>b<tr><td>1<td id=c>2</table>"
      "<div role=grid aria-label=Days><div role=row><span role=gridcell>1</span><span "
      "role=gridcell id=g>"
      "2</span></div></div>");
  EXPECT_EQ(Fact("#c", "row"), 2);
  EXPECT_EQ(Fact("#c", "column"), 2);
  EXPECT_EQ(Fact("#g", "row"), 1);
  EXPECT_EQ(Fact("#g", "column"), 2);
  const Json table = FactsOf("#c")["groups"][0];
  EXPECT_EQ(table[1], "table");
  EXPECT_EQ(table[2], "Prices");
  EXPECT_EQ(table[4], 2);
  EXPECT_EQ(table[5], 2);
}

TEST_F(ElementFactsTest, HiddenColumnsAndSpansCountAsInTheText) {
  Load(
      "<table><tr><th hidden>x<th colspan=2>a<th>b<tr><td hidden>x<td rowspan=2>1<td>2<td>3"
      "<tr><td hidden>x<td>4<td id=c>5</table>");
  EXPECT_EQ(Fact("#c", "column"), 3);
  EXPECT_EQ(Fact("#c", "row"), 3);
  const Json table = FactsOf("#c")["groups"][0];
  EXPECT_EQ(table[4], 3);
  EXPECT_EQ(table[5], 3);
}

TEST_F(FactsTest, TableThatOnlyPutsThingsBesideEachOtherIsNoGroup) {
  Load(
      "<table><tr><td>Name<td><input id=a></table>"
      "<table><tr><th>Name<td><input id=b></table>"
      "<table aria-label=Names><tr><td>Name<td><input id=c></table>");
  EXPECT_FALSE(FactsOf("#a").contains("groups"));
  EXPECT_EQ(FactsOf("#b")["groups"][0][1], "table");
  EXPECT_EQ(FactsOf("#c")["groups"][0][2], "Names");
}

// Where nothing changes that counts, what was found once is not looked for again; what
// does change counts at once.
TEST_F(FactsTest, PlacesInAListFollowEachChangeOfIt) {
  Load(
      "<style>.out {display: none}</style><div role=listbox id=list><div id=wrap>"
      "<p role=option id=a>A</p><p role=option id=b>B<i></i></p></div><p role=option "
      "id=c>C</p></div>");
  const auto after = [&](const std::string& script) {
    view_.EvaluateInPage(script);
    const auto facts = FactsOf("#c");
    return std::to_string(facts.value("place", 0)) + " of " +
           std::to_string(facts.value("size", 0));
  };
  EXPECT_EQ(after("1"), "3 of 3");
  EXPECT_EQ(after("b.className = 'here'; b.firstElementChild.className = 'x'"), "3 of 3");
  EXPECT_EQ(after("a.className = 'out'"), "2 of 2");
  EXPECT_EQ(after("a.className = ''"), "3 of 3");
  EXPECT_EQ(after("wrap.hidden = true"), "1 of 1");
  EXPECT_EQ(after("wrap.hidden = false"), "3 of 3");
  EXPECT_EQ(after("a.remove()"), "2 of 2");
  EXPECT_EQ(after("b.setAttribute('role', 'note')"), "1 of 1");
  EXPECT_EQ(after("list.insertAdjacentHTML('afterbegin', '<p role=option>0</p>')"), "2 of 2");
  EXPECT_EQ(after("b.before(c)"), "2 of 2");
}

}  // namespace
}  // namespace corvane::desktop
