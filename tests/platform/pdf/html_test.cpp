// What is written of nodes, also of those that no sound document has.
#include "platform/linux/pdf/html.h"

#include <gmock/gmock.h>

namespace corvane::pdf {
namespace {

using testing::HasSubstr;
using testing::Not;
using Kind = Node::Kind;

Node Text(const std::string& words) {
  Node node;
  node.kind = Kind::Text;
  node.text = words;
  return node;
}

Node Of(Kind kind, std::vector<Node> nodes, int page = 1) {
  Node node;
  node.kind = kind;
  node.page = page;
  node.nodes = std::move(nodes);
  return node;
}

std::string Written1(std::vector<Node> nodes, int pages = 1) {
  Written written;
  written.pages = written.read = pages;
  written.nodes = std::move(nodes);
  return Html(written, 1U << 20U);
}

TEST(HtmlTest, WhatIsTooMuchIsLeftOutAndThatIsSaid) {
  Written written;
  written.pages = written.read = 2;
  written.nodes = {Of(Kind::Paragraph, {Text("The beginning")}, 1),
                   Of(Kind::Paragraph, {Text(std::string(5000, 'x'))}, 2),
                   Of(Kind::Paragraph, {Text("The end")}, 2)};
  const std::string html = Html(written, 1000);
  EXPECT_LT(html.size(), 1500U);
  EXPECT_THAT(html, HasSubstr("The beginning"));
  EXPECT_THAT(html, HasSubstr("too long to be shown"));
  EXPECT_THAT(html, Not(HasSubstr("The end")));
  EXPECT_THAT(html, Not(HasSubstr("has no text")));
}

TEST(HtmlTest, LinksLeadToWhatHasNoWords) {
  Node picture = Of(Kind::Picture, {});
  picture.places = {"there"};
  Node named = Of(Kind::Picture, {});
  named.text = "A cat";
  named.places = {"one", "two"};
  const std::string html = Written1({picture, named});
  EXPECT_THAT(html, HasSubstr("id=\"there\""));
  EXPECT_THAT(html, HasSubstr("id=\"one\""));
  EXPECT_THAT(html, HasSubstr("id=\"two\""));
}

TEST(HtmlTest, WordsOfTheDocumentAreNoMarkup) {
  Written written;
  written.title = "</title><script>";
  written.language = "\"><script>";
  written.pages = written.read = 1;
  written.labels = {"\"><script>"};
  Node link = Text("<script>");
  link.address = "https://example.org/\"><script>";
  link.language = "en\" onclick=\"";
  Node picture = Of(Kind::Picture, {});
  picture.text = "\"><script>";
  written.nodes = {Of(Kind::Paragraph, {link, picture})};
  const std::string page = Html(written, 1U << 20U);
  EXPECT_THAT(page, Not(HasSubstr("<script")));
  EXPECT_THAT(page, Not(HasSubstr("onclick")));
  EXPECT_THAT(page, HasSubstr("href=\"https://example.org/&quot;&gt;&lt;script&gt;\""));
}

TEST(HtmlTest, AListThatGoesOverABorderIsOneListAndThePageIsFound) {
  Node border;
  border.kind = Kind::Break;
  border.page = 2;
  const std::string page = Written1(
      {Of(Kind::List, {Of(Kind::Item, {Text("one")}), Of(Kind::Item, {border, Text("two")})}),
       Of(Kind::Paragraph, {Text("three")}, 2), Of(Kind::Paragraph, {Text("four")}, 3)},
      3);
  EXPECT_THAT(page,
              HasSubstr("<li type=\"none\"><a id=\"page=2\"></a>two</li>\n</ul>\n"
                        "</section>\n<section aria-label=\"Page 2\">\n<p>three</p>\n</section>\n"
                        "<section id=\"page=3\" aria-label=\"Page 3\">\n<p>four</p>"));
}

TEST(HtmlTest, SignsOfItemsAreNotSaidTwice) {
  const auto item = [](const std::string& sign) {
    return Of(Kind::Item, {Of(Kind::Label, {Text(sign)}), Text("words")});
  };
  const std::string page = Written1({Of(Kind::List, {item("\u2022"), item("3.")})});
  EXPECT_THAT(page, HasSubstr("<li>words</li>"));
  EXPECT_THAT(page, HasSubstr("<li type=\"none\">3. words</li>"));
}

TEST(HtmlTest, NothingIsLostWhereTagsAreInAWrongPlace) {
  const std::string page =
      Written1({Of(Kind::Row, {Of(Kind::Cell, {Text("cell")})}), Of(Kind::Item, {Text("item")}),
                Of(Kind::Table, {Of(Kind::Paragraph, {Text("beside rows")})}),
                Of(Kind::Paragraph, {Of(Kind::List, {Of(Kind::Item, {Text("inner")})})}),
                Of(Kind::Heading, {Of(Kind::Paragraph, {Text("heading")})})});
  for (const char* words : {"cell", "item", "beside rows", "inner", "heading"}) {
    EXPECT_THAT(page, HasSubstr(words));
  }
  EXPECT_THAT(page, Not(HasSubstr("<p><ul>")));
  EXPECT_THAT(page, HasSubstr("<div><ul>"));
}

TEST(HtmlTest, APictureWithTextButNoWordsOfItsOwnIsRead) {
  const std::string page = Written1({Of(Kind::Picture, {Text("axis")}), Of(Kind::Picture, {})});
  EXPECT_THAT(page, HasSubstr("<p>axis</p>"));
  EXPECT_THAT(page, Not(HasSubstr("role=\"img\"")));
}

}  // namespace
}  // namespace corvane::pdf
