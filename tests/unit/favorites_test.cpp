#include "browser/FavoriteCommands.h"
#include "tests/unit/program.h"
#include "web/library/BookmarkFile.h"
#include "web/library/LinkFile.h"

namespace corvane::tests {
namespace {

constexpr int kKeyD = 68;
constexpr int kKeyI = 73;
constexpr int kKeyF2 = 113;

struct FavoritesTest : ::testing::Test {
  Program p;
  FakeShell& shell = p.desktop.shell;
  FakeFileSystem& files = p.desktop.files;

  void SetUp() override {
    // What is written appears in the folder.
    files.on_write = [this](const std::string& path, const std::string&) {
      shell.File(path).display =
          path.substr(path.rfind('/') + 1, path.rfind('.') - path.rfind('/') - 1);
    };
  }
  void StartWith(int content) {
    p.desktop.settings.Pane("SideBar") = std::to_string(content);
    p.StartTalking();
    p.Spoken();
  }
  void Visit(const std::string& address, const std::string& title) {
    p.Read(MakePage(address, title, "body"));
    p.Spoken();
  }
  FakeTreeNode& Root() { return *p.Tree().nodes.at(0); }
  FakeTreeNode& Choose(std::size_t index) {
    if (!Root().expanded) p.Tree().Toggle(Root());
    p.Tree().Click(Root()[index]);
    p.Spoken();
    return Root()[index];
  }
};

TEST_F(FavoritesTest, PageIsKeptWithAKeyFromAnywhere) {
  StartWith(kSideBarFavorites);
  Visit("http://weather/", "The weather");
  EXPECT_FALSE(p.Address().Press(kKeyD, kCtrlMask)) << "the key is used";
  EXPECT_THAT(p.Spoken(), ElementsAre("The weather added to Favorites"));
  EXPECT_THAT(files.files["/data/Favorites/The weather.url"],
              ElementsAre("[InternetShortcut]\r\nURL=http://weather/\r\n"));
  p.Tree().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("The weather is already in Favorites"));
  EXPECT_TRUE(p.Address().Press(kKeyD)) << "a letter stays one";
}

TEST_F(FavoritesTest, WordsForAKeptPageAreNotCutOffByTheKeysRelease) {
  StartWith(kSideBarFavorites);
  Visit("http://weather/", "The weather");
  p.Address().caret = 7;
  p.Address().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("The weather added to Favorites"));
  p.TextPane().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("The weather is already in Favorites"));
}

TEST_F(FavoritesTest, TreeShowsTheNewFavoriteAndKeepsItsPlace) {
  shell.File("/data/Favorites/old");
  StartWith(kSideBarFavorites);
  Choose(0);
  Visit("http://weather/", "The weather");
  p.TextPane().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(Root().Labels(), ElementsAre("The weather", "old"));
  EXPECT_EQ(p.Tree().selected, &Root()[1]);
}

TEST_F(FavoritesTest, PagesOfOneTitleGetNumbers) {
  StartWith(kSideBarNone);
  Visit("http://one/", "News: a/b");
  p.Browser().Press(kKeyD, kCtrlMask);
  Visit("http://two/", "News: a/b");
  p.Browser().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("News a b 2 added to Favorites"));
}

TEST_F(FavoritesTest, LongAddressIsKeptWhole) {
  StartWith(kSideBarNone);
  const std::string address = "http://a/" + std::string(300, 'x');
  Visit(address, "Long");
  p.Browser().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(files.files["/data/Favorites/Long.desktop"],
              ElementsAre("[Desktop Entry]\nType=Link\nName=Long\nURL=" + address + "\n"));
  EXPECT_EQ(Favorites(p.desktop, kEstablishedManner).AddressIn("/data/Favorites/Long.desktop"),
            address);
}

TEST_F(FavoritesTest, BlankPageIsNotKept) {
  StartWith(kSideBarNone);
  p.Browser().Press(kKeyD, kCtrlMask);
  Visit("about:blank", "");
  p.Browser().Press(kKeyD, kCtrlMask);
  Visit("data:text/html,x", "x");
  p.Browser().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("There is no page to add to Favorites"));
  EXPECT_TRUE(files.files.empty());
}

TEST_F(FavoritesTest, FailureIsSaid) {
  StartWith(kSideBarNone);
  files.on_write = [](const std::string&, const std::string&) {
    throw RunTimeError(kErrPermissionDenied, "", "Permission denied");
  };
  Visit("http://a/", "a");
  p.Browser().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("Permission denied"));
}

TEST_F(FavoritesTest, OneThatHasVanishedIsToldAndTheOthersStay) {
  shell.File("/data/Favorites/a.url");
  shell.File("/data/Favorites/b.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  shell.entries.erase("/data/Favorites/a.url");
  p.Tree().Press(kKeyDelete, kCtrlMask);
  p.Spoken();
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("No such file"));
  EXPECT_EQ(shell.entries.count("/data/Favorites/b.url"), 1U);
}

TEST_F(FavoritesTest, RemovingAsksForTheKeyTwice) {
  shell.File("/data/Favorites/a.url");
  shell.File("/data/Favorites/b.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("Press Control Delete again to remove a.url"));
  EXPECT_EQ(shell.entries.count("/data/Favorites/a.url"), 1U);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("a.url removed. Favorites Sidebar Item"));
  EXPECT_EQ(shell.entries.count("/data/Favorites/a.url"), 0U);
  EXPECT_THAT(Root().Labels(), ElementsAre("b.url"));
  EXPECT_EQ(p.Tree().selected, &Root());
}

TEST_F(FavoritesTest, AnotherKeyOrNodeTakesTheRemovalBack) {
  shell.File("/data/Favorites/a.url");
  shell.File("/data/Favorites/b.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  p.Tree().Press(kKeyDown);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  Choose(1);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("Press Control Delete again to remove b.url"));
  EXPECT_EQ(Root().children.size(), 2U);
}

TEST_F(FavoritesTest, FolderIsRemovedWithWhatIsInIt) {
  shell.Folder("/data/Favorites/News");
  shell.File("/data/Favorites/News/x.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_THAT(p.Spoken(),
              ElementsAre("Press Control Delete again to remove News and all that is in it"));
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_EQ(shell.entries.count("/data/Favorites/News/x.url"), 0U);
}

TEST_F(FavoritesTest, FavoritesThemselvesCannotBeRemoved) {
  StartWith(kSideBarFavorites);
  p.Tree().Click(Root());
  p.Spoken();
  p.Tree().Press(kKeyDelete, kCtrlMask);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(shell.entries.count("/data/Favorites"), 1U);
  EXPECT_THROW(Favorites(p.desktop, kEstablishedManner).Remove("/data"), RunTimeError);
  EXPECT_THROW(Favorites(p.desktop, kEstablishedManner).Rename("/data/History/x", "y"),
               RunTimeError);
}

TEST_F(FavoritesTest, VisitedPageCanBeForgotten) {
  shell.File("/data/History/visited.url").opened_by = "http://visited/";
  StartWith(kSideBarHistory);
  Choose(0);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  p.Tree().Press(kKeyDelete, kCtrlMask);
  EXPECT_EQ(shell.entries.count("/data/History/visited.url"), 0U);
  EXPECT_THAT(p.Spoken(), ElementsAre("Press Control Delete again to remove visited.url",
                                      "visited.url removed. History Sidebar Item"));
}

TEST_F(FavoritesTest, FavoriteIsRenamedInItsPlace) {
  shell.File("/data/Favorites/old.url").display = "old";
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyF2);
  ASSERT_TRUE(p.Tree().editing);
  shell.entries["/data/Favorites/old.url"].display = "new name";  // as its file will be called
  p.Tree().EditLabel("new/name");
  EXPECT_EQ(shell.entries.count("/data/Favorites/new name.url"), 1U);
  EXPECT_THAT(p.Spoken(), ElementsAre("old renamed to new name (urgent)"));
  ASSERT_NE(p.Tree().selected, nullptr);
  EXPECT_EQ(p.Tree().selected->Text(), "new name");
}

TEST_F(FavoritesTest, NameThatIsTakenIsRefusedAloud) {
  shell.File("/data/Favorites/a.url");
  shell.File("/data/Favorites/b.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyF2);
  p.Spoken();
  p.Tree().EditLabel("b");
  EXPECT_THAT(p.Spoken(), ElementsAre("File exists"));
  EXPECT_THAT(Root().Labels(), ElementsAre("a.url", "b.url"));
}

TEST_F(FavoritesTest, SameNameChangesNothing) {
  shell.File("/data/Favorites/a.url");
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyF2);
  p.Spoken();
  p.Tree().EditLabel("a.url");
  EXPECT_THAT(p.Spoken(), ElementsAre("a.url not renamed"));
}

TEST_F(FavoritesTest, CommandsOfFavoritesDoNothingElsewhere) {
  StartWith(kSideBarPageStructure);
  Visit("http://a/", "Title");
  p.Tree().Toggle(Root());
  p.Tree().Click(Root()[0]);
  p.Spoken();
  p.Tree().Press(kKeyDelete, kCtrlMask);
  p.Tree().Press(kKeyF2);
  p.Tree().Press(kKeyI, kCtrlMask);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_FALSE(p.Tree().editing);
}

// Bookmark files ----------------------------------------------------------------------

const std::vector<std::string> kExported = {
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>",
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">",
    "<TITLE>Bookmarks</TITLE>",
    "<H1>Bookmarks Menu</H1>",
    "<DL><p>",
    "  <DT><A HREF=\"http://top/?a=1&amp;b=2\" ADD_DATE=\"1\">Top &#38; first</A>",
    "  <DT><H3 ADD_DATE=\"2\">News</H3>",
    "  <DL><p>",
    "    <DT><A ICON='x' href='http://news/'>  Daily",
    "  news </A>",
    "    <DT><H3>Deep</H3>",
    "    <DL><p><DT><A HREF=http://deep/>Deep</A></DL><p>",
    "  </DL><p>",
    "  <DT><A HREF=\"javascript:alert(1)\">Bad</A>",
    "  <DT><A>No address</A>",
    "  <DT><A HREF=\"http://last/\">Last</A>",
    "</DL>",
};

TEST(BookmarkFile, FoldersTitlesAndAddressesAreRead) {
  EXPECT_TRUE(IsBookmarkFile(kExported));
  EXPECT_FALSE(IsBookmarkFile({"<html>", "<a href=x>"}));
  const auto found = ReadBookmarkFile(kExported);
  ASSERT_EQ(found.size(), 5U);
  EXPECT_EQ(found[0].title, "Top & first");
  EXPECT_EQ(found[0].address, "http://top/?a=1&b=2");
  EXPECT_THAT(found[0].folders, IsEmpty());
  EXPECT_EQ(found[1].address, "http://news/");
  EXPECT_THAT(found[1].folders, ElementsAre("News"));
  EXPECT_EQ(found[2].address, "http://deep/");
  EXPECT_THAT(found[2].folders, ElementsAre("News", "Deep"));
  EXPECT_EQ(found[4].title, "Last");
  EXPECT_THAT(found[4].folders, IsEmpty());
}

TEST(BookmarkFile, BrokenFilesCostOnlyWhatIsBroken) {
  EXPECT_THAT(ReadBookmarkFile({}), IsEmpty());
  EXPECT_THAT(ReadBookmarkFile({"</DL></DL><DT><A HREF=\"http://a"}), IsEmpty());
  const auto found = ReadBookmarkFile(
      {"</DL></DL>", "<H3>f</H3><DL>", "<A HREF=\"http://a/\">&bad; &#0;&#xD800;", "</A>"});
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].title, "&bad; \xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(BookmarkFile, FoldersAreNotEnteredForEver) {
  std::vector<std::string> lines(1000, "<H3>f</H3><DL>");
  lines.push_back("<A HREF=\"http://a/\">a</A>");
  EXPECT_EQ(ReadBookmarkFile(lines).at(0).folders.size(), 20U);
}

TEST_F(FavoritesTest, BookmarksOfAnotherBrowserAreTakenOver) {
  shell.File("/data/Favorites/bookmarks.html");
  files.files["/data/Favorites/bookmarks.html"] = kExported;
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyI, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("4 bookmarks taken over into bookmarks, 1 left out"));
  EXPECT_EQ(files.files.count("/data/Favorites/bookmarks/Top & first.url"), 1U);
  EXPECT_EQ(files.files.count("/data/Favorites/bookmarks/News/Deep/Deep.url"), 1U);
  EXPECT_THAT(Root().Labels(), ElementsAre("bookmarks", "bookmarks.html"));
}

TEST_F(FavoritesTest, BookmarksThatAFullDiskHasNoRoomForAreCounted) {
  shell.File("/data/Favorites/bookmarks.html");
  files.files["/data/Favorites/bookmarks.html"] = kExported;
  StartWith(kSideBarFavorites);
  Choose(0);
  int written = 0;
  files.on_write = [&](const std::string&, const std::string&) {
    if (++written > 2) throw RunTimeError(kErrDeviceIo, "", "No space left on device");
  };
  p.Tree().Press(kKeyI, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("2 bookmarks taken over into bookmarks, 3 left out"));
  EXPECT_EQ(files.files["/data/Favorites/bookmarks.html"], kExported) << "and can be tried again";
}

TEST_F(FavoritesTest, FileOfBookmarksThatCannotBeReadIsRefusedAloud) {
  shell.File("/data/Favorites/bookmarks.html");
  files.files["/data/Favorites/bookmarks.html"] = kExported;
  StartWith(kSideBarFavorites);
  Choose(0);
  files.unreadable = true;
  p.Tree().Press(kKeyI, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("Permission denied"));
}

TEST_F(FavoritesTest, RenamedPageStaysOne) {
  shell.File("/data/Favorites/saved.HTML");
  Favorites favorites(p.desktop, kEstablishedManner);
  EXPECT_EQ(favorites.Rename("/data/Favorites/saved.HTML", "report"), "report.HTML");
  EXPECT_TRUE(shell.entries.contains("/data/Favorites/report.HTML"));
  EXPECT_EQ(favorites.Rename("/data/Favorites/report.HTML", "other.html"), "other.html");
}

TEST_F(FavoritesTest, NamesHoldNothingThatDeceives) {
  StartWith(kSideBarNone);
  Visit("http://a/", "bank\u202Excod.\u200Bexe");
  p.Browser().Press(kKeyD, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("bankxcod.exe added to Favorites"));
}

TEST_F(FavoritesTest, FileThatHoldsNoBookmarksIsRefusedAloud) {
  shell.File("/data/Favorites/page.html");
  files.files["/data/Favorites/page.html"] = {"<html>"};
  StartWith(kSideBarFavorites);
  Choose(0);
  p.Tree().Press(kKeyI, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("This is not a file of bookmarks"));
}

TEST(LinkFile, NothingBreaksOutOfItsLine) {
  EXPECT_EQ(ShortcutContent("http://a/\r\n[Other]"),
            "[InternetShortcut]\r\nURL=http://a/  [Other]\r\n");
  EXPECT_EQ(DesktopLinkContent("n\nExec=x", "u"),
            "[Desktop Entry]\nType=Link\nName=n Exec=x\nURL=u\n");
}

}  // namespace
}  // namespace corvane::tests
