#include "browser/reading/TextKinds.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;

ElementFacts Facts(const std::string& role, const std::string& name,
                   const std::string& value = "") {
  ElementFacts facts;
  facts.role = role;
  facts.name = name;
  facts.value = value;
  return facts;
}

/// Every line of the page as it is said.
std::vector<std::string> Lines(const PageTextMaker& maker) {
  const TextMap map(maker.Make());
  std::vector<std::string> said;
  int start = 0;
  std::string rest = maker.Make()->text;
  while (true) {
    const std::string line = rest.substr(0, rest.find('\n'));
    said.push_back(LineWithKinds(map, start, line));
    start += static_cast<int>(text::length(line)) + 1;
    if (line.size() == rest.size()) return said;
    rest = rest.substr(line.size() + 1);
  }
}

TEST(TextKinds, ALineIsSaidWithWhatBeginsOnIt) {
  EXPECT_THAT(Lines(PageTextMaker("Prices\nNext week")
                        .Add(Kind::Heading, "Prices", 2)
                        .Add(Kind::Link, "Next week")),
              ElementsAre("heading level 2, Prices", "link, Next week"));
  EXPECT_THAT(Lines(PageTextMaker("Send\nName, Al\nA cat")
                        .Add(Kind::Button, "Send", 0, 0, Facts("button", "Send"))
                        .Add(Kind::Edit, "Name, Al", 0, 0, Facts("textbox", "Name", "Al"))
                        .Add(Kind::Picture, "A cat")),
              ElementsAre("button, Send", "edit, Name, Al", "picture, A cat"));
  EXPECT_THAT(Lines(PageTextMaker("first\nsecond")
                        .Add(Kind::List, "first\nsecond", 3)
                        .Add(Kind::Item, "first", 0, 1)
                        .Add(Kind::Item, "second", 4)),
              ElementsAre("list of 3, bullet, first", "4, second"));
}

TEST(TextKinds, ATableIsSaidWithItsSizeBehindItsName) {
  const std::string text = "Prices\nDay\tPrice";
  EXPECT_THAT(Lines(PageTextMaker(text).Add(Kind::Table, text, 3, 2, Facts("table", "Prices"))),
              ElementsAre("table, Prices, 3 rows, 2 columns", "Day, Price"));
  EXPECT_THAT(Lines(PageTextMaker("a\tb").Add(Kind::Table, "a\tb", 1, 2, Facts("table", "Prices"))),
              ElementsAre("table, Prices, 1 row, 2 columns, a, b"));
}

TEST(TextKinds, WhatBeginsWithinALineIsSaidThere) {
  EXPECT_THAT(Lines(PageTextMaker("See the \xC3\xA9nd rules now").Add(Kind::Link, "rules")),
              ElementsAre("See the \xC3\xA9nd link, rules now"));
}

TEST(TextKinds, StatesFollowTheWordsAndNamelessFieldsAreOnlyCalledByTheirKind) {
  ElementFacts box = Facts("checkbox", "Agree");
  box.checked = Tri::No;
  EXPECT_THAT(Lines(PageTextMaker("Agree to it").Add(Kind::CheckBox, "Agree", 0, 0, box)),
              ElementsAre("check box, Agree, not checked to it"));
  EXPECT_THAT(Lines(PageTextMaker("(edit)").Add(Kind::Edit, "(edit)", 0, 0, Facts("textbox", ""))),
              ElementsAre("edit"));
  ElementFacts off = Facts("button", "");
  off.disabled = true;
  EXPECT_THAT(Lines(PageTextMaker("(button)").Add(Kind::Button, "(button)", 0, 0, off)),
              ElementsAre("button, unavailable"));
}

TEST(TextKinds, ALineInTheMiddleOfAnElementIsItsTextAlone) {
  const std::string text = "one\ntwo";
  EXPECT_THAT(Lines(PageTextMaker(text).Add(Kind::Link, text)), ElementsAre("link, one", "two"));
}

TEST(TextKinds, WhatIsReachedIsCalledByItsWordsFirst) {
  PageTextMaker maker("Prices Next week Al x");
  maker.Add(Kind::Heading, "Prices", 2).Add(Kind::Link, "Next week");
  ElementFacts facts = Facts("textbox", "Name", "Al");
  facts.required = true;
  maker.Add(Kind::Edit, "Al", 0, 0, facts).Add(Kind::Landmark, "x", 0, 0, Facts("main", ""));
  maker.Add(Kind::List, "x", 3).Add(Kind::Table, "x", 3, 2, Facts("table", "Prices"));
  const TextMap map(maker.Make());
  std::vector<std::string> said;
  for (const PageSpan& span : map.Page().spans) said.push_back(ReachedWords(map, span));
  EXPECT_THAT(said,
              ElementsAre("Prices, heading level 2", "Next week, link", "Name, edit, Al, required",
                          "main", "list of 3", "Prices, table, 3 rows, 2 columns"));
}

}  // namespace
}  // namespace corvane::tests
