// The cells of a page's tables, against the real engine.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/platform/web/text_fixture.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Kind = PageSpan::Kind;

struct TextTableTest : TextTest {
  /// "word@row,column" with "+rows,columns" where a cell reaches over more, "^" where it
  /// heads its columns, "<" where its rows.
  std::vector<std::string> Cells(std::size_t table = 0) const {
    std::vector<std::string> cells;
    if (table >= page_->tables.size()) return {"no such table"};
    for (const PageCell& cell : page_->tables[table].cells) {
      std::string words = Words(page_->spans[cell.span]) + "@" + std::to_string(cell.row) + "," +
                          std::to_string(cell.column);
      if (cell.rows > 1 || cell.columns > 1) {
        words += "+" + std::to_string(cell.rows) + "," + std::to_string(cell.columns);
      }
      words += (cell.heads_columns ? "^" : "") + std::string(cell.heads_rows ? "<" : "");
      cells.push_back(words);
    }
    return cells;
  }
  std::string Size(std::size_t table = 0) const {
    const PageSpan& span = page_->spans[page_->tables.at(table).span];
    return std::to_string(span.level) + " x " + std::to_string(span.more);
  }
};

TEST_F(TextTableTest, CellsLieInRowsAndColumns) {
  Load("<table><tr><th>Day<th>Price<tr><td>Mo<td>3</table>");
  EXPECT_THAT(Cells(), ElementsAre("Day@1,1^", "Price@1,2^", "Mo@2,1", "3@2,2"));
  EXPECT_EQ(Size(), "2 x 2");
  EXPECT_EQ(page_->text, "Day\tPrice\nMo\t3");
}

TEST_F(TextTableTest, ACellMayReachOverSeveral) {
  Load(
      "<table><tr><th rowspan=2>Day<th colspan=2>Price<tr><th>kilo<th>pound"
      "<tr><td>Mo<td rowspan=2>3<td>4<tr><td>Tu<td>5</table>");
  EXPECT_THAT(Cells(), ElementsAre("Day@1,1+2,1^", "Price@1,2+1,2^", "kilo@2,2^", "pound@2,3^",
                                   "Mo@3,1", "3@3,2+2,1", "4@3,3", "Tu@4,1", "5@4,3"));
}

TEST_F(TextTableTest, WhatReachesTooFarEndsWithItsGroup) {
  Load(
      "<table><thead><tr><th colspan=1000>Head<tbody><tr><td rowspan=0>a<td>b<tr><td>c"
      "<tbody><tr><td rowspan=99>d<td>e</table>");
  EXPECT_THAT(Cells(),
              ElementsAre("Head@1,1+1,2^", "a@2,1+2,1", "b@2,2", "c@3,2", "d@4,1", "e@4,2"));
  EXPECT_EQ(Size(), "4 x 2");
}

TEST_F(TextTableTest, HeadersOfRowsAndColumnsAreToldApart) {
  Load(
      "<table><tr><td><th>Mo<th>Tu<tr><th>Sun<td>1<td>2<tr><td scope=row>Rain<td>3<th scope=col>4"
      "</table>");
  EXPECT_THAT(Cells(), ElementsAre("@1,1", "Mo@1,2^", "Tu@1,3^", "Sun@2,1<", "1@2,2", "2@2,3",
                                   "Rain@3,1<", "3@3,2", "4@3,3^"));
}

TEST_F(TextTableTest, AGroupsHeaderReachesToItsEnd) {
  Load(
      "<table><thead><tr><th>Name<th>Price<tbody><tr><th scope=rowgroup colspan=2>Fruit"
      "<tr><td>Apple<td>3<tbody><tr><th scope=rowgroup colspan=2>Nuts<tr><td>Hazel<td>5</table>");
  const auto& cells = page_->tables.at(0).cells;
  ASSERT_EQ(cells.size(), 8U);
  EXPECT_EQ(cells[2].heads_until, 4);
  EXPECT_EQ(cells[5].heads_until, 6);
}

TEST_F(TextTableTest, HeadersThatThePageNamesAreKnown) {
  Load(
      "<table><tr><th id=a>A<th id=b>B<tr><td headers='b a nothing'>1<td headers=c>2<tr><th id=c>C"
      "</table><table><tr><th id=d>D<td headers='a d'>3</table>");
  const auto& cells = page_->tables.at(0).cells;
  EXPECT_THAT(cells[2].headers, ElementsAre(1, 0));
  EXPECT_THAT(cells[3].headers, ElementsAre(4)) << "it comes later";
  EXPECT_THAT(page_->tables.at(1).cells[1].headers, ElementsAre(0)) << "only of its own table";
}

TEST_F(TextTableTest, EmptyCellsHaveTheirPlaceOnTheirLine) {
  Load("<p>before<table><tr><th>A<th>B<th>C<tr><td>1<td><td>2<tr><td><td>3<td></table><p>after");
  EXPECT_THAT(Cells(), ElementsAre("A@1,1^", "B@1,2^", "C@1,3^", "1@2,1", "@2,2", "2@2,3", "@3,1",
                                   "3@3,2", "@3,3"));
  const auto place = [&](std::size_t cell) {
    return page_->spans[page_->tables[0].cells[cell].span].start;
  };
  const std::string& text = page_->text;
  EXPECT_EQ(place(4), static_cast<int>(text.find("1\t\t2")) + 1);
  EXPECT_EQ(place(6), static_cast<int>(text.find("3\n")));
  EXPECT_EQ(place(8), static_cast<int>(text.find("3\n")) + 1);
}

TEST_F(TextTableTest, RowsThatAreNotShownAreNotCounted) {
  Load("<table><tr><th>A<tr hidden><td>no<tr style='display:none'><td>no<tr><td>1</table>");
  EXPECT_THAT(Cells(), ElementsAre("A@1,1^", "1@2,1"));
  EXPECT_EQ(Size(), "2 x 1");
}

TEST_F(TextTableTest, TablesOfRolesAreTables) {
  Load(
      "<div role=table aria-label=T aria-rowcount=90><div role=rowgroup><div role=row><span "
      "role=columnheader>A</span><span role=columnheader>B</span></div></div>"
      "<div role=row aria-rowindex=40><span role=rowheader>x</span><span role=cell>1</span></div>"
      "</div>"
      "<div role=grid><div role=row><div role=gridcell aria-colspan=2>wide</div></div>"
      "<div role=row><div role=gridcell tabindex=0>c</div><div role=gridcell "
      "aria-colindex=5>d</div></div></div>");
  EXPECT_THAT(Cells(0), ElementsAre("A@1,1^", "B@1,2^", "x@40,1<", "1@40,2"));
  EXPECT_EQ(Size(0), "90 x 2");
  EXPECT_THAT(Cells(1), ElementsAre("wide@1,1+1,2", "c@2,1", "d@2,5"));
  EXPECT_NE(page_->text.find("A B\nx 1"), std::string::npos) << page_->text;
}

TEST_F(TextTableTest, ALayoutIsNoTable) {
  Load(
      "<table><tr><td>lay<td>out</table>"
      "<table role=presentation><tr><th>a<td>b</table><table role=none><caption>c</caption><tr><td>"
      "d</table>");
  EXPECT_THAT(page_->tables, IsEmpty());
  EXPECT_THAT(All(Kind::Cell), IsEmpty());
}

TEST_F(TextTableTest, ATableInALayoutAndOneInACellAreTablesOfTheirOwn) {
  Load(
      "<table><tr><td>lay<td><table><tr><th>A<tr><td>1</table></table>"
      "<table role=table><tr><td>out<td><table><tr><th>B<tr><td>2</table></td><td>x</table>");
  ASSERT_EQ(page_->tables.size(), 3U);
  EXPECT_THAT(Cells(0), ElementsAre("A@1,1^", "1@2,1"));
  EXPECT_THAT(Cells(1), ElementsAre("B@1,1^", "2@2,1")) << "the inner one first";
  EXPECT_THAT(Cells(2), ElementsAre("out@1,1", "B\n2@1,2", "x@1,3"));
}

TEST_F(TextTableTest, ATableMayLieInAShadowTree) {
  Load(
      "<my-table><b slot=cell>slotted</b></my-table><script>customElements.define('my-table', "
      "class extends HTMLElement { constructor() { super(); this.attachShadow({mode: "
      "'open'}).innerHTML = '<table><tr><th id=h>A<tr><td headers=h><slot name=cell></slot>"
      "</table>'; } })</script>");
  EXPECT_THAT(Cells(), ElementsAre("A@1,1^", "slotted@2,1"));
  EXPECT_THAT(page_->tables[0].cells[1].headers, ElementsAre(0));
}

TEST_F(TextTableTest, AllRowsThatAreEmptyAndCellsOutsideOfRowsCostNothing) {
  Load(
      "<table><tr><th><th><tr><td><td></table><div role=table><div role=cell>loose</div></div>"
      "<table><caption>Only this</caption></table><p>end");
  EXPECT_THAT(page_->tables, IsEmpty());
  EXPECT_NE(page_->text.find("loose\nOnly this"), std::string::npos) << page_->text;
}

TEST_F(TextTableTest, AHostileTableIsBounded) {
  Load(
      "<table id=t><caption>T</caption></table><div role=grid id=g></div><table "
      "id=w></table><script>"
      "let html = '';"
      "for (let i = 0; i < 3; i++) html += `<th rowspan=1000000000>${i}`;"
      "html = `<tr>${html}`; for (let i = 0; i < 20; i++) html += '<tr><td rowspan=0>x<td>y';"
      "t.innerHTML += html;"
      "html = '<div role=row aria-rowindex=1e99><i role=cell aria-colindex=-4 aria-colspan=1e99 "
      "aria-rowspan=7>a</i></div>';"
      "g.innerHTML = html + html; w.innerHTML = '<tr><th colspan=1000000000>A<td>b' </script>");
  ASSERT_EQ(page_->tables.size(), 3U);
  EXPECT_EQ(page_->tables[0].cells.size(), 43U);
  EXPECT_THAT(Cells(1), ElementsAre("a@10000000,1+2,1000", "a@10000001,1001"));
  EXPECT_THAT(Cells(2), ElementsAre("A@1,1+1,1000<", "b@1,1001"));
}

TEST_F(TextTableTest, AHundredThousandCellsHaveTheirPlaces) {
  Load(
      "<table id=t></table><script>let html = '<caption>T</caption>';"
      "for (let i = 0; i < 10000; i++) html += '<tr>' + '<td>1'.repeat(10);"
      "t.innerHTML = html</script>");
  ASSERT_EQ(page_->tables.size(), 1U);
  EXPECT_EQ(page_->tables[0].cells.size(), 100'000U);
  EXPECT_EQ(page_->tables[0].cells.back().row, 10'000);
  EXPECT_EQ(Size(), "10000 x 10");
}

}  // namespace
}  // namespace corvane::desktop
