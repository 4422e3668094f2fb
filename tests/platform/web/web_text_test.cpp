// Line breaking, escaping and templates.
#include "platform/linux/web/web_text.h"

#include <gtest/gtest.h>

#include "platform/linux/web/corvane_pages.h"
#include "platform/linux/web/files/file_names.h"
#include "platform/linux/web/files/save_page.h"
#include "platform/linux/web/problem.h"

namespace corvane::desktop {
namespace {

TEST(BreakLongLines, LeavesShortLinesAlone) {
  EXPECT_EQ(BreakLongLines("one two\nthree", 7), "one two\nthree");
}

TEST(BreakLongLines, BreaksAtTheLastBlank) {
  EXPECT_EQ(BreakLongLines("one two three", 9), "one two\nthree");
}

TEST(BreakLongLines, CutsWhereThereIsNoBlank) {
  EXPECT_EQ(BreakLongLines("abcdefgh", 3), "abc\ndef\ngh");
}

TEST(BreakLongLines, CountsCharactersAndNeverCutsOne) {
  EXPECT_EQ(BreakLongLines("éééé", 3), "ééé\né");
}

TEST(BreakLongLines, BreaksEachLineForItself) {
  EXPECT_EQ(BreakLongLines("aaaa\nbb cc", 4), "aaaa\nbb\ncc");
}

TEST(BreakLongLines, BreaksAgainAfterABreak) {
  EXPECT_EQ(BreakLongLines("aa bb cc dd", 5), "aa bb\ncc dd");
}

TEST(BreakLongLines, ABlankAtTheLimitBreaksThere) {
  EXPECT_EQ(BreakLongLines("abc def", 4), "abc\ndef");
}

TEST(BreakLongLines, TwoMegabytesInOneLine) {
  const std::string broken = BreakLongLines(std::string(2'000'000, 'x'));
  EXPECT_EQ(broken.size(), 2'000'000u + 499u);
}

TEST(BreakLongLines, EmptyText) { EXPECT_EQ(BreakLongLines(""), ""); }

TEST(EscapeHtml, Everything) {
  EXPECT_EQ(EscapeHtml("<a href=\"x\" b='c'>&"), "&lt;a href=&quot;x&quot; b=&#39;c&#39;&gt;&amp;");
}

TEST(Shorten, CountsCharacters) {
  EXPECT_EQ(Shorten("ééé", 3), "ééé");
  EXPECT_EQ(Shorten("ééé", 2), "éé...");
}

TEST(FillTemplate, PutsValuesInOnce) {
  EXPECT_EQ(FillTemplate("a {{x}} b {{y}} {{none}}.", {{"x", "{{y}}"}, {"y", "2"}}),
            "a {{y}} b 2 .");
  EXPECT_EQ(FillTemplate("a {{x", {{"x", "1"}}), "a {{x");
}

TEST(WebResource, UnknownFileIsAMistake) { EXPECT_ANY_THROW(WebResource("none.html")); }

TEST(RenderProblem, EscapesWhatItSays) {
  const std::string page = RenderProblem({"<t>", "<s>", "<a>", "\"><script>"});
  EXPECT_NE(page.find("&lt;t&gt;"), std::string::npos);
  EXPECT_NE(page.find("&lt;s&gt;"), std::string::npos);
  EXPECT_EQ(page.find("<script>"), std::string::npos);
}

constexpr const char* kQuery = "corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=";

TEST(SearchedWords, OfTheFixedForm) {
  EXPECT_EQ(SearchedWords(std::string(kQuery) + "+cats+and+dogs"), "cats and dogs");
  EXPECT_EQ(SearchedWords(std::string(kQuery) + "+%22a%2Bb%22"), "\"a+b\"");
}

TEST(SearchedWords, KeepsWhatTheFormLeavesAsItIs) {
  EXPECT_EQ(SearchedWords(std::string(kQuery) + "+100%+a&b=c#d"), "100% a&b=c#d");
  EXPECT_EQ(SearchedWords(std::string(kQuery) + "caf\xC3\xA9"), "caf\xC3\xA9");
}

TEST(SearchedWords, MendsBrokenBytes) {
  EXPECT_EQ(SearchedWords(std::string(kQuery) + "a%FFb"),
            "a\xEF\xBF\xBD"
            "b");
}

TEST(SearchedWords, NothingElsewhere) {
  EXPECT_EQ(SearchedWords("http://search/cgi-bin/query?q=x"), "");
  EXPECT_EQ(SearchedWords("corvane://search/cgi-bin/query?pg=q"), "");
}

TEST(ServiceAddress, PutsTheWordsIn) {
  EXPECT_EQ(ServiceAddress("https://s.example/?q=%s&x=1", "a b&c"),
            "https://s.example/?q=a%20b%26c&x=1");
}

TEST(ServiceAddress, NoUsableService) {
  EXPECT_EQ(ServiceAddress("", "x"), "");
  EXPECT_EQ(ServiceAddress("https://s.example/", "x"), "");
  EXPECT_EQ(ServiceAddress("javascript:%s", "x"), "");
}

TEST(RenderSearch, LeadsToSavedPagesInAWayThatTheEngineFollows) {
  const std::string page = RenderSearch("a", {{"Saved", "file:///home/ann/a%20b.html"}}, false);
  EXPECT_NE(page.find("\"corvane://saved/home/ann/a%20b.html\""), std::string::npos);
  EXPECT_EQ(SavedFile("corvane://saved/home/ann/a%20b.html"), "file:///home/ann/a%20b.html");
  EXPECT_EQ(SavedFile("corvane://savedx/a"), "");
  EXPECT_EQ(SavedFile("corvane://home/cv/"), "");
}

TEST(RenderSearch, EscapesWordsAndMatches) {
  const std::string page = RenderSearch("<b>", {{"<i>", "http://x/?\"><script>"}}, false);
  EXPECT_NE(page.find("&lt;b&gt;"), std::string::npos);
  EXPECT_NE(page.find("&lt;i&gt;"), std::string::npos);
  EXPECT_EQ(page.find("<script>"), std::string::npos);
  EXPECT_EQ(page.find("<b>"), std::string::npos);
}

}  // namespace
}  // namespace corvane::desktop
