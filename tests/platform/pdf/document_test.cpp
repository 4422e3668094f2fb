// What is made of documents of three writers.
#include "platform/linux/pdf/document.h"

#include <gmock/gmock.h>

#include "tests/temporary_folder.h"

namespace corvane::pdf {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string DocumentOf(const std::string& name) {
  return test::ContentOf(std::string(CORVANE_DOCUMENTS) + "/" + name + ".pdf");
}

class DocumentTest : public testing::Test {
 protected:
  static void SetUpTestSuite() { Prepare(); }

  Outcome Make(const std::string& document, const std::string& password = "",
               const Limits& limits = {}) {
    page_.clear();
    return Convert(document, {"https://example.org/papers/list.pdf", password}, limits, page_);
  }
  /// What stands between the begin and the end of the body.
  std::string Body(const std::string& name) {
    EXPECT_EQ(Make(DocumentOf(name)), Outcome::Done);
    const std::string begin = "<body>\n";
    const auto from = page_.find(begin) + begin.size();
    return page_.substr(from, page_.find("</body>") - from);
  }

  std::string page_;
};

TEST_F(DocumentTest, TagsBecomeTheStructureOfThePage) {
  EXPECT_EQ(Body("tagged"), R"(<section id="page=1" aria-label="Page 1">
<h1>Opening hours</h1>
<p>We are open every day from nine to five, but not on Sundays and holidays.</p>
<h2>Prices</h2>
<table>
<tr><th>Ticket</th><th>Price</th></tr>
<tr><th>Adult</th><td>12</td></tr>
<tr><th>Child</th><td>6</td></tr>
</table>
<ul>
<li>Bring a coat.</li>
<li>Leave the dog.</li>
</ul>
<p><a href="https://example.org/?a=1&amp;b=2">Our site</a></p>
</section>
<section id="page=2" aria-label="Page 2">
<p>Page 2 has no text.</p>
</section>
<section id="page=3" aria-label="Page 3">
<h1>The map</h1>
<p>Turn left.</p>
</section>
)");
  EXPECT_THAT(page_, HasSubstr("<title>Opening hours &amp; more</title>"));
}

TEST_F(DocumentTest, WithoutTagsTheOutlineGivesTheHeadings) {
  const std::string body = Body("report");
  EXPECT_THAT(body, HasSubstr("<h1>Contents</h1>\n"
                              "<p><a href=\"#page=3,1\">Go to the second part</a></p>\n"
                              "<p><a href=\"#page=3,1\">Part two 3</a></p>\n"
                              "<p><a href=\"https://example.org/\">Go out</a></p>\n"
                              "</section>\n"
                              "<section id=\"page=2\" aria-label=\"Page 2\">\n"
                              "<h1>First part</h1>\n"));
  EXPECT_THAT(body, HasSubstr("<p>What comes before it on the page.</p>\n"
                              "<h1 id=\"page=3,1\">Second part</h1>\n"
                              "<p>The end.</p>\n"));
}

TEST_F(DocumentTest, LinksThatArePartsOfAddressesAreWhole) {
  const auto leads_to = [this](std::string link) {
    link.resize(20, ' ');
    std::string document = test::ContentOf(std::string(CORVANE_SEEDS) + "/linked.pdf");
    document.replace(document.find("https://example.org/"), 20, link);
    EXPECT_EQ(Make(document), Outcome::Done);
    const auto from = page_.find("href=\"", page_.find("href=\"#") + 1);
    return from == std::string::npos ? ""
                                     : page_.substr(from + 6, page_.find('"', from + 6) - from - 6);
  };
  EXPECT_EQ(leads_to("next.pdf"), "https://example.org/papers/next.pdf");
  EXPECT_EQ(leads_to("/a"), "https://example.org/a");
  EXPECT_EQ(leads_to("www.example.org"), "http://www.example.org");
  EXPECT_EQ(leads_to("file:///etc/passwd"), "");
  EXPECT_EQ(leads_to("javascript:alert(1)"), "");
}

TEST_F(DocumentTest, AColumnIsReadToItsEnd) {
  const std::string body = Body("report");
  const auto last_left = body.find("left column, line 12");
  ASSERT_NE(last_left, std::string::npos);
  EXPECT_LT(last_left, body.find("right column, line 1 "));
}

TEST_F(DocumentTest, LanguagesPicturesCellsAndPageNumbersAreTheAuthors) {
  EXPECT_EQ(Body("by_hand"), R"(<section id="page=1" aria-label="Page iv">
<h1>Bericht</h1>
<p>Guten Tag.</p>
<p lang="en-GB">Good day.</p>
<span role="img" aria-label="A cat on a mat"></span>
<p>Spelled out</p>
<table>
<tr><th colspan="2">Sum</th></tr>
<tr><th scope="row">Rent</th><td>700</td></tr>
</table>
<p>Nobody has tagged this.</p>
</section>
)");
  EXPECT_THAT(page_, HasSubstr("<html lang=\"de-DE\">"));
  EXPECT_THAT(page_, HasSubstr("<title>Bericht</title>"));  // it has no other
}

TEST_F(DocumentTest, APageThatIsAPictureSaysSo) {
  EXPECT_THAT(Body("scanned"), HasSubstr("<p>Page 1 is a picture without text.</p>\n</section>"));
  EXPECT_THAT(page_, HasSubstr("<p>Words after all.</p>"));
}

TEST_F(DocumentTest, ALockedDocumentOpensWithItsPassword) {
  EXPECT_EQ(Make(DocumentOf("locked")), Outcome::Locked);
  EXPECT_EQ(Make(DocumentOf("locked"), "wrong"), Outcome::Locked);
  EXPECT_EQ(Make(DocumentOf("locked"), "open sesame"), Outcome::Done);
  EXPECT_THAT(page_, HasSubstr("Second part"));
}

TEST_F(DocumentTest, WhatIsNoDocumentIsBroken) {
  EXPECT_EQ(Make(DocumentOf("broken")), Outcome::Broken);
  EXPECT_EQ(Make(""), Outcome::Broken);
  EXPECT_EQ(Make("<title>A page</title>"), Outcome::Broken);
}

TEST_F(DocumentTest, ADocumentThatBreaksOffIsReadAsFarAsItGoes) {
  const std::string whole = DocumentOf("report");
  const Outcome outcome = Make(whole.substr(0, whole.rfind("startxref")));
  ASSERT_EQ(outcome, Outcome::Done);
  EXPECT_THAT(page_, HasSubstr("Contents"));
}

TEST_F(DocumentTest, WhatIsTooMuchIsLeftOutAndSaid) {
  ASSERT_EQ(Make(DocumentOf("report"), "", {.most_words = 1}), Outcome::Done);
  EXPECT_THAT(page_, HasSubstr("<p>The document has 3 pages, of which only 1 could be read.</p>"));
  EXPECT_THAT(page_, Not(HasSubstr("Second part")));
  ASSERT_EQ(Make(DocumentOf("report"), "", {.longest = 1000}), Outcome::Done);
  EXPECT_THAT(page_, HasSubstr("The document goes on, but the rest is too long to be shown."));
  EXPECT_THAT(page_, Not(HasSubstr("The end.")));
}

}  // namespace
}  // namespace corvane::pdf
