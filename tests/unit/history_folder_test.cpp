// The history as files, and finding shortcuts in it.
#include "web/library/HistoryFolder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/text.h"
#include "tests/temporary_folder.h"
#include "web/library/LinkSearch.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

auto Match(const std::string& title, const std::string& address) {
  return AllOf(Field(&SearchMatch::title, title), Field(&SearchMatch::address, address));
}

std::vector<SearchMatch> FindLinks(const std::vector<std::string>& folders,
                                   const std::string& words) {
  return LinkSearch{folders, "/home/ann", [](const std::string& text) { return text::lower(text); }}
      .Find(words);
}

class HistoryFolderTest : public testing::Test {
 protected:
  std::vector<std::string> Files(const std::string& day) {
    std::vector<std::string> names;
    if (!fs::exists(root_ / day)) return names;
    for (const auto& each : fs::directory_iterator(root_ / day)) {
      names.push_back(each.path().filename().string());
    }
    return names;
  }
  static std::string Content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const test::TemporaryFolder folder_;
  const fs::path root_{folder_.Path()};
  std::string day_ = "2001-12-31";
  HistoryFolder MakeHistory(int days = 30) {
    return HistoryFolder(root_.string(), &test::WriteFile, days, [this] { return day_; });
  }
};

TEST_F(HistoryFolderTest, WritesAShortcutIntoTheDaysFolder) {
  auto history = MakeHistory();
  history.Add("http://a.example/x?y", "My page");
  EXPECT_THAT(Files(day_), ElementsAre("My page.url"));
  EXPECT_EQ(Content(root_ / day_ / "My page.url"),
            "[InternetShortcut]\r\nURL=http://a.example/x?y\r\n");
}

TEST_F(HistoryFolderTest, ASecondVisitReplacesTheFirst) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "A");
  history.Add("http://a.example/", "A");
  EXPECT_THAT(Files(day_), SizeIs(1));
}

TEST_F(HistoryFolderTest, PagesOfTheSameTitleAreKeptApart) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "A");
  history.Add("http://b.example/", "A");
  history.Add("http://b.example/", "A");
  EXPECT_THAT(Files(day_), UnorderedElementsAre("A.url", "A 2.url"));
}

TEST_F(HistoryFolderTest, ATitleCannotLeadElsewhere) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "../../evil");
  EXPECT_THAT(Files(day_), ElementsAre("evil.url"));
}

TEST_F(HistoryFolderTest, ATitleCannotTurnTheDirectionOfText) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "bank\u202Excod.\u200Bexe");
  EXPECT_THAT(Files(day_), ElementsAre("bankxcod.exe.url"));
}

TEST_F(HistoryFolderTest, AnAddressCannotAddLines) {
  auto history = MakeHistory();
  history.Add("http://a.example/\r\nIconFile=x", "A");
  EXPECT_THAT(Files(day_), IsEmpty());
}

TEST_F(HistoryFolderTest, OldDaysGo) {
  auto history = MakeHistory(2);
  for (const char* day : {"2001-12-29", "2001-12-30", "2001-12-31", "2002-01-01"}) {
    day_ = day;
    history.Add("http://a.example/", "A");
  }
  EXPECT_THAT(Files("2001-12-29"), IsEmpty());
  EXPECT_THAT(Files("2001-12-30"), IsEmpty());
  EXPECT_THAT(Files("2001-12-31"), SizeIs(1));
  EXPECT_THAT(Files("2002-01-01"), SizeIs(1));
}

TEST_F(HistoryFolderTest, WhatIsNoDayIsLeftAlone) {
  fs::create_directories(root_ / "notes");
  auto history = MakeHistory(1);
  history.Add("http://a.example/", "A");
  day_ = "2002-01-01";
  history.Add("http://a.example/", "A");
  history.Clear();
  EXPECT_TRUE(fs::exists(root_ / "notes"));
  EXPECT_FALSE(fs::exists(root_ / "2002-01-01"));
}

TEST_F(HistoryFolderTest, AFolderThatCannotBeWrittenIsNoTrouble) {
  HistoryFolder history("/proc/none", &test::WriteFile, 3, [this] { return day_; });
  history.Add("http://a.example/", "A");
  history.Clear();
  EXPECT_FALSE(fs::exists("/proc/none"));
}

TEST_F(HistoryFolderTest, FindsByAllWordsInNameOrAddress) {
  auto history = MakeHistory();
  history.Add("http://cats.example/", "All about CATS");
  history.Add("http://dogs.example/", "All about dogs");
  const auto matches = FindLinks({root_.string()}, "about cats.example");
  ASSERT_THAT(matches, SizeIs(1));
  EXPECT_EQ(matches[0].title, "All about CATS");
  EXPECT_EQ(matches[0].address, "http://cats.example/");
}

TEST_F(HistoryFolderTest, FindsAPageOnceTheNewestFirst) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "Page one");
  day_ = "2002-01-01";
  history.Add("http://a.example/", "Page one");
  history.Add("http://b.example/", "Page two");
  const auto matches = FindLinks({root_.string()}, "page");
  ASSERT_THAT(matches, SizeIs(2));
  EXPECT_EQ(matches[0].title, "Page two");
}

TEST_F(HistoryFolderTest, FindsEveryKindOfLinkFileAndSavedPages) {
  folder_.Write("f/Cats one.URL", "[InternetShortcut]\nURL=http://one.example/\n");
  folder_.Write("f/x.desktop", "[Desktop Entry]\nType=Link\nName=Cats two\nURL=http://two/\n");
  folder_.Write("f/saved page.html", "<title>Cats &amp; three</title>");
  folder_.Write("f/cats.txt", "cats");
  EXPECT_THAT(FindLinks({(root_ / "f").string()}, "cats"),
              UnorderedElementsAre(
                  Match("Cats one", "http://one.example/"), Match("Cats two", "http://two/"),
                  Match("Cats & three", "file://" + (root_ / "f/saved%20page.html").string())));
}

TEST_F(HistoryFolderTest, FindsOnlyWhatTheSideBarWouldFollow) {
  folder_.Write("f/cats 1.url", "[InternetShortcut]\nURL=javascript:alert(1)\n");
  folder_.Write("f/cats 2.url", "[InternetShortcut]\nURL=data:text/html,cats\n");
  folder_.Write("f/cats 3.url", "[InternetShortcut]\nURL=cats.example\n");
  EXPECT_THAT(FindLinks({(root_ / "f").string()}, "cats"),
              ElementsAre(Match("cats 3", "https://cats.example")));
}

TEST_F(HistoryFolderTest, NoWordsFindNothing) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "A");
  EXPECT_THAT(FindLinks({root_.string(), "/no/such/folder"}, "  "), IsEmpty());
}

TEST_F(HistoryFolderTest, ForgetsOnePageOnAllDays) {
  auto history = MakeHistory();
  history.Add("http://a.example/", "A");
  history.Add("http://b.example/", "B");
  day_ = "2002-01-01";
  history.Add("http://a.example/", "A, renamed");
  EXPECT_EQ(history.Forget("http://a.example/"), 2U);
  EXPECT_THAT(Files("2001-12-31"), ElementsAre("B.url"));
  EXPECT_FALSE(fs::exists(root_ / "2002-01-01")) << "nothing is left of that day";
  EXPECT_EQ(history.Forget("http://a.example/"), 0U);
}

}  // namespace
}  // namespace corvane
