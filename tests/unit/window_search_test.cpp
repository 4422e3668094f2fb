#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "access/CWin32API.h"
#include "base/pattern.h"
#include "tests/fakes/fake_desktop.h"

namespace corvane::tests {
namespace {

using namespace corvane::fakes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Pattern, WildcardsFitWhatTheyStandFor) {
  for (const auto& [text, pattern] : std::vector<std::pair<std::string, std::string>>{
           {"", ""},
           {"", "*"},
           {"News", "n?w*"},
           {"abcabd", "*abd"},
           {"Page 7", "Page #"},
           {"cat", "[abc]at"},
           {"Bat", "[a-c]at"},
           {"rat", "[!a-c]at"},
           {"a-b", "a[x-]b"},
           {"a*b", "a[*]b"},
           {"ÄÖ", "Ä?"},
           {std::string(300, 'a'), "*a*a*a*a*a*a*a*a"}}) {
    EXPECT_TRUE(pattern::matches(text, pattern)) << text << " " << pattern;
  }
}

TEST(Pattern, AnythingElseDoesNotFit) {
  for (const auto& [text, pattern] : std::vector<std::pair<std::string, std::string>>{
           {"a", ""},
           {"", "?"},
           {"Page x", "Page #"},
           {"cat", "[!a-c]at"},
           {"Newspaper", "News"},
           {"a", "[a"},
           {"a", "[]"},
           {std::string(3000, 'a'), "*a*a*a*a*a*a*a*b"}}) {
    EXPECT_FALSE(pattern::matches(text, pattern)) << text << " " << pattern;
  }
}

struct WindowSearchTest : ::testing::Test {
  FakeDesktop desktop;
  FakeWindows& windows = desktop.windows;
  CWin32API search{windows};
  WindowHandle start = windows.Add("Start", "Form");
  WindowHandle news = windows.Add("News of today", "Pane", start);
  WindowHandle inner = windows.Add("News inside", "Pane", news);
  WindowHandle button = windows.Add("OK", "Button", start);
  WindowHandle elsewhere = windows.Add("News elsewhere", "Pane");
  std::vector<WindowHandle> found = {99};
};

TEST_F(WindowSearchTest, EveryWindowBelowTheStartIsFoundChildrenBeforeTheirParent) {
  EXPECT_EQ(search.FindWindow(start, "", "*", found, false), 3);
  EXPECT_THAT(found, ElementsAre(inner, news, button));
}

TEST_F(WindowSearchTest, OnlyOneIsFoundWhenOnlyOneIsWanted) {
  EXPECT_EQ(search.FindWindow(start, "", "*", found, true), 1);
  EXPECT_THAT(found, ElementsAre(inner));
}

TEST_F(WindowSearchTest, TitleIsAPatternOfItsBeginning) {
  EXPECT_EQ(search.FindWindow(start, "News", "*", found, false), 2);
  EXPECT_EQ(search.FindWindow(start, "news ?f", "*", found, false), 1);
  EXPECT_THAT(found, ElementsAre(news));
  EXPECT_EQ(search.FindWindow(start, "today", "*", found, false), 0);
  EXPECT_THAT(found, IsEmpty());
}

TEST_F(WindowSearchTest, ClassIsAPatternOfTheWholeName) {
  EXPECT_EQ(search.FindWindow(start, "", "Butt", found, false), 0);
  EXPECT_EQ(search.FindWindow(start, "", "butt*", found, false), 1);
  EXPECT_THAT(found, ElementsAre(button));
}

TEST_F(WindowSearchTest, LongClassNamesAreCompared254Characters) {
  windows.windows[button].class_name = std::string(254, 'x') + "end";
  EXPECT_EQ(search.FindWindow(start, "", std::string(254, 'x'), found, false), 1);
  EXPECT_EQ(search.FindWindow(start, "", std::string(254, 'x') + "e", found, false), 0);
}

TEST_F(WindowSearchTest, LongTitlesAreCompared254Characters) {
  windows.windows[button].text = std::string(254, 'x') + "end";
  EXPECT_EQ(search.FindWindow(start, std::string(254, 'x'), "Button", found, false), 1);
  EXPECT_EQ(search.FindWindow(start, std::string(254, 'x') + "e", "Button", found, false), 0);
}

TEST_F(WindowSearchTest, FindsAreListedInAnAttachedList) {
  FakeListBox list(desktop, "List1");
  list.AddItem("of the search before");
  search.AttachListBox(&list);
  search.FindWindow(start, "News", "*", found, false);
  EXPECT_THAT(list.list, ElementsAre("News inside", "News of today"));
}

TEST_F(WindowSearchTest, StartThatIsGoneHasNothingBelow) {
  EXPECT_EQ(search.FindWindow(4711, "", "*", found, false), 0);
  EXPECT_THAT(found, IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
