#include "browser/reading/TableKeys.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;

constexpr int kTable = kAltMask | kShiftMask;
constexpr const char* kText =
    "before\nPrices\nFruit\tKilo\tPound\nApples\t3\t2\nPears\t\tby request\nafter";

struct TableKeysTest : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("Focus") = "5";
    p.StartTalking();
    Show(Table());
  }
  void Show(const PageTextPtr& text) {
    p.Read(MakePage("http://a/", "T", text->text));
    p.Browser().TextDescribed(text);
    p.TextPane().SetFocus();
    p.Spoken();
    p.Browser().calls.clear();
  }
  /// "Pears" has no price by the kilo.
  static PageTextPtr Table() {
    PageTextMaker maker(kText);
    ElementFacts facts;
    facts.role = "table";
    facts.name = "Prices";
    maker.Add(Kind::Table, std::string(kText).substr(7, 62), 3, 3, facts);
    maker.Cell("Fruit", 1, 1).heads_columns = true;
    maker.Cell("Kilo", 1, 2).heads_columns = true;
    maker.Cell("Pound", 1, 3).heads_columns = true;
    maker.Cell("Apples", 2, 1).heads_rows = true;
    maker.Cell("3", 2, 2);
    maker.Cell("2", 2, 3);
    maker.Cell("Pears", 3, 1).heads_rows = true;
    maker.Behind("Pears").Cell("", 3, 2);
    maker.Cell("by request", 3, 3);
    maker.Add(Kind::Link, "request");
    return maker.Make();
  }
  void Press(int code) { p.TextPane().Press(code, kTable); }
  std::vector<std::string> Heard(std::initializer_list<int> codes) {
    for (const int code : codes) Press(code);
    return p.Spoken();
  }
  std::string AtCaret() {
    return text::mid(p.TextPane().text, static_cast<std::size_t>(p.TextPane().start) + 1, 5);
  }
};

TEST_F(TableKeysTest, WhatChangesIsSaidWithItsHeaderInFront) {
  p.TextPane().Press('T', 0, 't');
  p.Spoken();
  EXPECT_THAT(Heard({kKeyDown, kKeyDown, kKeyRight, kKeyRight, kKeyDown, kKeyUp, kKeyLeft}),
              ElementsAre("Fruit, row 1, column 1", "Apples, row 2", "Kilo, 3, column 2",
                          "Pound, 2, column 3", "Pears, by link, request, row 3",
                          "Apples, 2, row 2", "Kilo, 3, column 2"));
  EXPECT_EQ(AtCaret(), "3\t2\nP");
}

TEST_F(TableKeysTest, HeadersAreHeardWithinBounds) {
  const std::string essay(5000, 'x');
  PageTextMaker maker(essay + "\nB");
  maker.Add(Kind::Table, essay + "\nB", 2, 1);
  maker.Cell(essay, 1, 1).heads_columns = true;
  maker.Cell("B", 2, 1);
  Show(maker.Make());
  p.TextPane().Press('T', 0, 't');
  p.Spoken();
  const auto heard = Heard({kKeyEnd});
  ASSERT_EQ(heard.size(), 1U);
  EXPECT_LT(heard.front().size(), 300U);
}

TEST_F(TableKeysTest, ATableThatWasReachedIsEnteredAtItsFirstCell) {
  PageTextMaker maker("A\tB");
  maker.Add(Kind::Table, "A\tB", 1, 2);
  maker.Cell("A", 1, 1);
  maker.Cell("B", 1, 2);
  Show(maker.Make());
  p.TextPane().Press('T', 0, 't');
  p.Spoken();
  EXPECT_THAT(Heard({kKeyRight, kKeyRight}), ElementsAre("A, row 1, column 1", "B, column 2"));
}

TEST_F(TableKeysTest, TheViewMovesAlong) {
  p.TextPane().Press('T', 0, 't');
  Press(kKeyDown);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 1", "Show 2"));
}

TEST_F(TableKeysTest, AnEmptyCellIsBlankAndLeavesTheWayOn) {
  p.TextPane().Press('T', 0, 't');
  Heard({kKeyDown, kKeyDown, kKeyDown});
  EXPECT_THAT(Heard({kKeyRight}), ElementsAre("Kilo, blank, column 2"));
  p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Spoken(), ElementsAre("No link, button or field here"));
  EXPECT_THAT(Heard({kKeyUp, kKeyDown, kKeyRight, kKeyLeft}),
              ElementsAre("Apples, 3, row 2", "Pears, blank, row 3",
                          "Pound, by link, request, column 3", "Kilo, blank, column 2"));
}

TEST_F(TableKeysTest, AtTheEdgeThePlaceStays) {
  EXPECT_THAT(Heard({kKeyRight}), ElementsAre("Not in a table"));
  p.TextPane().Press('T', 0, 't');
  p.Spoken();
  EXPECT_THAT(
      Heard({kKeyEnd, kKeyDown, kKeyRight, kKeyHome, kKeyLeft, kKeyUp}),
      ElementsAre("Pears, Pound, by link, request, row 3, column 3", "Edge of table",
                  "Edge of table", "Fruit, row 1, column 1", "Edge of table", "Edge of table"));
  EXPECT_EQ(AtCaret(), "Fruit");
}

TEST_F(TableKeysTest, WhereverTheCaretStandsInACellTheWayBeginsThere) {
  p.TextPane().Press('T', 0, 't');
  p.TextPane().Press(kKeyDown);
  p.TextPane().Press(kKeyDown);
  p.TextPane().Press(kKeyRight);
  p.Spoken();
  EXPECT_THAT(Heard({kKeyRight}), ElementsAre("Kilo, 3, column 2"));
}

TEST_F(TableKeysTest, QuickKeysGoOnFromTheCell) {
  p.TextPane().Press('T', 0, 't');
  Heard({kKeyEnd});
  p.TextPane().Press('K', 0, 'k');
  p.TextPane().Press('T', kShiftMask, 'T');
  EXPECT_THAT(p.Spoken(), ElementsAre("request, link", "Prices, table, 3 rows, 3 columns"));
}

TEST_F(TableKeysTest, ACellOverSeveralSaysWhichAndKeepsTheColumn) {
  PageTextMaker maker("A\tB\tC\nwide\na\tb\tc");
  maker.Add(Kind::Table, "A\tB\tC\nwide\na\tb\tc", 3, 3);
  maker.Cell("A", 1, 1);
  maker.Cell("B", 1, 2);
  maker.Cell("C", 1, 3);
  maker.Cell("wide", 2, 1, 1, 3);
  maker.Cell("a", 3, 1);
  maker.Cell("b", 3, 2);
  maker.Cell("c", 3, 3);
  Show(maker.Make());
  p.TextPane().Press('T', 0, 't');
  Press(kKeyHome);
  p.Spoken();
  EXPECT_THAT(Heard({kKeyRight, kKeyDown}),
              ElementsAre("B, column 2", "wide, row 2, columns 1 to 3"));
  p.TextPane().Press(kKeyRight);
  p.Spoken();
  EXPECT_THAT(Heard({kKeyDown}), ElementsAre("b, row 3, column 2")) << "also from within the cell";
}

TEST_F(TableKeysTest, OfTablesInEachOtherTheInnermostIsWalked) {
  PageTextMaker maker("out\nA\n1\nrest");
  maker.Add(Kind::Table, "out\nA\n1\nrest", 1, 3);
  maker.Cell("out", 1, 1);
  maker.Cell("A\n1", 1, 2);
  maker.Add(Kind::Table, "A\n1", 2, 1);
  maker.Cell("A", 1, 1);
  maker.Cell("1", 2, 1);
  auto& page = maker.Page();
  std::swap(page.tables[0], page.tables[1]);  // as the page's script has them
  maker.Cell("rest", 1, 3);
  Show(maker.Make());
  p.TextPane().Press('T', 0, 't');
  p.TextPane().Press('T', 0, 't');
  p.Spoken();
  EXPECT_THAT(Heard({kKeyDown, kKeyDown}), ElementsAre("A, row 1, column 1", "1, row 2"));
}

TEST_F(TableKeysTest, WithQuickKeysOffTheKeysAreThePanes) {
  KeyEvent f4{kKeyF4, 0};
  p.Inside().form->KeyDown.Raise(f4);
  p.TextPane().SetSelStart(10);
  p.Spoken();
  KeyEvent key{kKeyRight, kTable};
  p.TextPane().KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, kKeyRight);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(TableKeysTest, AsLongAsThePageIsNotKnownThatIsSaid) {
  p.Read(MakePage("http://b/", "T", "text"));
  p.TextPane().SetFocus();
  p.Spoken();
  EXPECT_THAT(Heard({kKeyRight}), ElementsAre("The page is still being read"));
}

}  // namespace
}  // namespace corvane::tests
