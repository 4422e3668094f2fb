// Reading a page's text with its elements, also as nobody in his right mind sends it.
#include "web/page/TextRecord.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

std::string Record(const std::string& text, const std::string& spans,
                   const std::string& details = "[]") {
  return R"({"text":")" + text + R"(","documents":["d"],"spans":[)" + spans + R"(],"details":)" +
         details + "}";
}

std::size_t Kept(const std::string& spans) {
  const auto page = ParsePageText(Record("12345", spans));
  return page ? page->spans.size() : 999;
}

TEST(ParsePageText, ReadsTextAndElements) {
  const auto page = ParsePageText(Record("\xC3\xA9 Prices\\nAl", "1,2,6,7,2,0,0,-1,4,9,2,8,0,0,0,0",
                                         R"([{"role":"textbox","name":"Name","value":"Al"}])"));
  ASSERT_TRUE(page);
  EXPECT_EQ(page->text, "\xC3\xA9 Prices\nAl");
  EXPECT_EQ(page->length, 11);
  ASSERT_EQ(page->spans.size(), 2U);
  EXPECT_EQ(page->spans[0].kind, PageSpan::Kind::Heading);
  EXPECT_EQ(page->spans[0].level, 2);
  EXPECT_EQ(page->spans[0].End(), 8);
  EXPECT_EQ(page->spans[0].facts, nullptr);
  EXPECT_EQ(page->ElementOf(page->spans[1]), (PageElement{"d", 8}));
  EXPECT_EQ(page->spans[1].facts->name, "Name");
}

TEST(ParsePageText, LeavesOutElementsThatDoNotFit) {
  EXPECT_EQ(Kept("2,0,5,1,0,0,0,-1"), 1U);
  EXPECT_EQ(Kept("2,0,6,1,0,0,0,-1"), 0U) << "longer than the text";
  EXPECT_EQ(Kept("2,5,1,1,0,0,0,-1"), 0U) << "behind it";
  EXPECT_EQ(Kept("2,0,0,1,0,0,0,-1"), 0U) << "empty";
  EXPECT_EQ(Kept("2,-1,3,1,0,0,0,-1"), 0U);
  EXPECT_EQ(Kept("99,0,1,1,0,0,0,-1"), 0U) << "of no kind";
  EXPECT_EQ(Kept("2,0,1,1,0,0,1,-1"), 0U) << "of no document";
  EXPECT_EQ(Kept("2,0,1,0,0,0,0,-1"), 0U) << "of no number";
  EXPECT_EQ(Kept("2,3,1,1,0,0,0,-1,2,1,1,2,0,0,0,-1"), 1U) << "out of order";
  EXPECT_EQ(Kept("2,0,2147483647,1,0,0,0,-1"), 0U);
  EXPECT_EQ(Kept("2,0,99999999999999,1,0,0,0,-1"), 0U);
  EXPECT_EQ(Kept("2,0,1,1,0,0,0,77"), 1U) << "nothing else is known of it";
  EXPECT_EQ(Kept("2,0,1"), 0U);
}

// A table of two cells, "a" and one without text, in the text "abcde".
std::shared_ptr<PageText> WithTables(const std::string& tables) {
  return ParsePageText(
      R"({"text":"abcde","documents":["d"],"details":[],"spans":[99,0,1,9,0,0,0,-1,)"
      R"(12,0,5,1,1,2,0,-1,13,0,1,2,0,0,0,-1,13,5,0,3,0,0,0,-1],"tables":)" +
      tables + "}");
}

TEST(ParsePageText, ReadsTables) {
  const auto page = WithTables("[[1,[2,1,1,1,1,3,2,3,1,2,1,2,0,0],[[1,0,1,5,-1]]]]");
  ASSERT_TRUE(page);
  ASSERT_EQ(page->tables.size(), 1U);
  EXPECT_EQ(page->tables[0].span, 0U) << "the span in front of it did not fit";
  const auto& cells = page->tables[0].cells;
  ASSERT_EQ(cells.size(), 2U);
  EXPECT_EQ(cells[0].span, 1U);
  EXPECT_TRUE(cells[0].heads_columns);
  EXPECT_TRUE(cells[0].heads_rows);
  EXPECT_EQ(cells[0].heads_until, 2);
  EXPECT_EQ(page->spans[cells[1].span].length, 0);
  EXPECT_EQ(cells[1].column, 2);
  EXPECT_EQ(cells[1].columns, 2);
  EXPECT_EQ(cells[1].headers, std::vector<std::size_t>{0});
}

TEST(ParsePageText, LeavesOutTablesThatDoNotFit) {
  for (const char* table :
       {"null", "[]", "3", "[1,[2,1,1,1,1,0,0]]", "[1,[],[]]", "[0,[2,1,1,1,1,0,0],[]]",
        "[2,[2,1,1,1,1,0,0],[]]", "[77,[2,1,1,1,1,0,0],[]]", "[-1,[2,1,1,1,1,0,0],[]]",
        "[1,[2,0,1,1,1,0,0],[]]", "[1,[2,1,1,1,2147483647,0,0],[]]", "[1,[1,1,1,1,1,0,0],[]]",
        "[1,[2,1,1,1],[]]", R"([1,["a",1,1,1,1,0,0],[]])"}) {
    const auto page = WithTables("[" + std::string(table) + "]");
    ASSERT_TRUE(page) << table;
    EXPECT_TRUE(page->tables.empty()) << table;
  }
  const auto page = WithTables("[[1,[0,1,1,1,1,0,0,2,1,2,1,1,0,0],[[0,1],[1,0,1],[]]]]");
  ASSERT_EQ(page->tables.size(), 1U);
  ASSERT_EQ(page->tables[0].cells.size(), 1U);
  EXPECT_TRUE(page->tables[0].cells[0].headers.empty()) << "what they name is not there";
}

TEST(ParsePageText, HasNoneOfWhatIsNoText) {
  for (const char* text : {"", "null", "[]", "{}", R"({"text":3})", R"({"text":"a\u0000b"})",
                           R"({"text":"a\rb"})", "{"}) {
    EXPECT_EQ(ParsePageText(text), nullptr) << text;
  }
  EXPECT_EQ(ParsePageText(Record(std::string(5000, 'x'), "")), nullptr)
      << "a line that a text view cannot show";
}

TEST(ParsePageElement, ReadsOneElement) {
  EXPECT_EQ(ParsePageElement(R"(["d",3])"), (PageElement{"d", 3}));
  EXPECT_EQ(ParsePageElement(R"(["d",-3])"), (PageElement{"d", 0}));
  for (const char* text : {"", "[]", R"(["d"])", R"([3,3])", R"(["d",3,4])"}) {
    EXPECT_EQ(ParsePageElement(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace corvane
