#include "platform/linux/shell/file_shell.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/error.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kAll = kContentsFolders | kContentsNonFolders | kContentsHidden;
constexpr std::uint32_t kEvery = 0xFFFFFFFFU;

/// The thread acts as a user without rights while this lives.
class OtherUser {
 public:
  OtherUser() { EXPECT_EQ(seteuid(kNobody), 0); }
  ~OtherUser() { EXPECT_EQ(seteuid(0), 0); }
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
};

class FileShellTest : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  FileShell shell_{folder_.Path()};

  std::shared_ptr<ShellFolder> Bind(const std::string& path) {
    return shell_.BindToFolder(*shell_.ParseDisplayName(path));
  }
  static std::vector<std::string> Names(ShellFolder& folder, int contents = kAll) {
    std::vector<std::string> names;
    const auto each = folder.EnumObjects(contents);
    while (each->Read()) {
    }
    for (std::string name; each->Next(name);) names.push_back(name);
    return names;
  }
  std::optional<std::uint32_t> Attributes(const std::string& name, std::uint32_t mask = kEvery) {
    return Bind(folder_.Path())->GetAttributesOf(name, mask);
  }
};

TEST_F(FileShellTest, PlacesArePathsInSegments) {
  EXPECT_THAT(*shell_.ParseDisplayName("/usr//bin/../lib/"), ElementsAre("usr", "lib"));
  EXPECT_THAT(*shell_.ParseDisplayName("/"), IsEmpty());
  EXPECT_EQ(shell_.GetPathFromIdList({"usr", "lib"}), "/usr/lib");
  EXPECT_EQ(shell_.GetPathFromIdList({}), "/");
  EXPECT_EQ(shell_.ParseDisplayName("/no such thing"), std::nullopt);
  EXPECT_EQ(shell_.ParseDisplayName("usr"), std::nullopt);
}

TEST_F(FileShellTest, SpecialFoldersAreMadeForTheirOwnerOnly) {
  const auto place = shell_.SpecialFolderLocation(kFolderFavorites);
  ASSERT_TRUE(place);
  EXPECT_EQ(shell_.GetPathFromIdList(*place), folder_ / "Favorites");
  EXPECT_EQ(fs::status(folder_ / "Favorites").permissions(), fs::perms::owner_all);
  EXPECT_EQ(shell_.GetPathFromIdList(*shell_.SpecialFolderLocation(kFolderHistory)),
            folder_ / "History");
  EXPECT_THAT(*shell_.SpecialFolderLocation(kFolderDesktop), IsEmpty());
  EXPECT_EQ(shell_.SpecialFolderLocation(12345), std::nullopt);
}

TEST_F(FileShellTest, FoldersComeFirstThenAsPeopleSort) {
  for (const char* name : {"page 10.url", "page 2.url", "Apple", "banana", ".hidden"}) {
    folder_.Write(name, "");
  }
  fs::create_directory(folder_ / "zoo");
  fs::create_directory_symlink(folder_ / "zoo", folder_ / "linked zoo");
  auto folder = Bind(folder_.Path());
  const auto names = Names(*folder);
  ASSERT_EQ(names.size(), 7U);
  EXPECT_EQ(names[0], "linked zoo");
  EXPECT_EQ(names[1], "zoo");
  const auto at = [&](const char* name) { return std::find(names.begin(), names.end(), name); };
  EXPECT_LT(at("page 2.url"), at("page 10.url"));
  EXPECT_THAT(Names(*folder, kContentsFolders), ElementsAre("linked zoo", "zoo"));
  EXPECT_EQ(Names(*folder, kContentsNonFolders).size(), 4U) << "without the hidden one";
}

TEST_F(FileShellTest, AttributesTellFoldersFilesAndLinks) {
  constexpr std::uint32_t kFile = kAttributeFileSystem | kAttributeCanLink;
  folder_.Write("plain", "");
  folder_.Write("a.url", "");
  folder_.Write("b.desktop", "");
  folder_.Write("full/x", "");
  fs::create_directory(folder_ / "empty");
  fs::create_symlink(folder_ / "plain", folder_ / "link");
  EXPECT_EQ(Attributes("plain"), kFile);
  EXPECT_EQ(Attributes("a.url"), kFile | kAttributeLink);
  EXPECT_EQ(Attributes("b.desktop"), kFile | kAttributeLink);
  EXPECT_EQ(Attributes("link"), kFile | kAttributeLink);
  EXPECT_EQ(Attributes("empty"), kFile | kAttributeFolder);
  EXPECT_EQ(Attributes("full"), kFile | kAttributeFolder | kAttributeHasSubFolder);
  EXPECT_EQ(Attributes("full", kAttributeFolder), kAttributeFolder);
}

TEST_F(FileShellTest, AttributesOfWhatIsNotThereCannotBeRead) {
  fs::create_symlink(folder_ / "nowhere", folder_ / "dangling");
  EXPECT_EQ(Attributes("dangling"), std::nullopt);
  EXPECT_EQ(Attributes("gone"), std::nullopt);
}

TEST_F(FileShellTest, LinkFilesAreNamedWithoutTheirExtension) {
  folder_.Write("Weather.URL", "");
  folder_.Write("app.desktop", "[Desktop Entry]\nName=The app\n");
  folder_.Write("broken.desktop", "nonsense");
  folder_.Write("saved.html", "<title>Another name</title>");
  folder_.Write("a\u202Eb.url", "");
  folder_.Write("plain.txt", "");
  folder_.Write("\xFFname", "");
  fs::create_directory(folder_ / "folder.url");
  auto folder = Bind(folder_.Path());
  EXPECT_EQ(folder->GetDisplayNameOf("Weather.URL"), "Weather");
  EXPECT_EQ(folder->GetDisplayNameOf("app.desktop"), "The app");
  EXPECT_EQ(folder->GetDisplayNameOf("broken.desktop"), "broken");
  EXPECT_EQ(folder->GetDisplayNameOf("saved.html"), "saved.html");
  EXPECT_EQ(folder->GetDisplayNameOf("a\u202Eb.url"), "ab");
  EXPECT_EQ(folder->GetDisplayNameOf("plain.txt"), "plain.txt");
  EXPECT_EQ(folder->GetDisplayNameOf("folder.url"), "folder.url");
  EXPECT_EQ(folder->GetDisplayNameOf("\xFFname"), "\xEF\xBF\xBDname");
  EXPECT_EQ(folder->GetDisplayNameOf(""), "Desktop");
}

TEST_F(FileShellTest, HistoryIsOpenedByItsAddresses) {
  const std::string address = "http://a/" + std::string(1000, 'x');
  folder_.Write("History/2001-12-31/Page.url", "[InternetShortcut]\r\nURL=" + address + "\r\n");
  folder_.Write("Favorites/Page.url", "[InternetShortcut]\r\nURL=http://a/\r\n");
  folder_.Write("History/2001-12-31/Other.URL", "[InternetShortcut]\r\nURL=http://o/\r\n");
  folder_.Write("History/2001-12-31/other", "");
  auto day = Bind(folder_ / "History/2001-12-31");
  EXPECT_EQ(day->GetPathOf("Page.url"), address);
  EXPECT_EQ(day->GetPathOf("Other.URL"), "http://o/");
  EXPECT_EQ(day->GetPathOf("other"), "");
  EXPECT_EQ(Bind(folder_ / "History")->GetPathOf("2001-12-31"), "");
  EXPECT_EQ(Bind(folder_ / "Favorites")->GetPathOf("Page.url"), folder_ / "Favorites/Page.url");
}

TEST_F(FileShellTest, FolderThatCannotBeReadHoldsNothing) {
  folder_.Write("file", "");
  EXPECT_THAT(Names(*shell_.BindToFolder({"no", "such", "folder"})), IsEmpty());
  EXPECT_THAT(Names(*Bind(folder_ / "file")), IsEmpty());
}

TEST_F(FileShellTest, FolderThatTheUserMayNotReadHoldsNothing) {
  folder_.Write("locked/x", "");
  fs::permissions(folder_.Path(), fs::perms::all);
  fs::permissions(folder_ / "locked", fs::perms::none);
  const auto names = [&] { return Names(*Bind(folder_ / "locked")); };
  if (geteuid() != 0) {
    EXPECT_THAT(names(), IsEmpty());
  } else {
    // The superuser reads every folder: somebody else looks in its place.
    EXPECT_THAT(names(), ElementsAre("x"));
    const OtherUser nobody;
    EXPECT_THAT(names(), IsEmpty());
  }
  fs::permissions(folder_ / "locked", fs::perms::owner_all);
}

TEST_F(FileShellTest, FolderThatVanishesWhileItIsReadEndsTheReading) {
  for (int i = 0; i < 1000; ++i) folder_.Write("f/" + std::to_string(i), "");
  auto folder = Bind(folder_ / "f");
  const auto each = folder->EnumObjects(kAll);
  EXPECT_TRUE(each->Read()) << "a piece at a time";
  fs::remove_all(folder_ / "f");
  int reads = 0;
  while (each->Read()) ASSERT_LT(++reads, 100);
  std::string name;
  while (each->Next(name)) EXPECT_EQ(folder->GetAttributesOf(name, kEvery), std::nullopt);
}

TEST_F(FileShellTest, LinksThatLoopCanBeFollowedAStepAtATime) {
  fs::create_directory_symlink(".", folder_ / "again");
  fs::create_symlink("loop", folder_ / "loop");
  ItemIdList place = *shell_.ParseDisplayName(folder_.Path());
  for (int i = 0; i < 60; ++i) place.push_back("again");
  EXPECT_THAT(Names(*shell_.BindToFolder(place)), IsEmpty()) << "the system gives up, quietly";
  EXPECT_EQ(Attributes("loop"), std::nullopt);
  EXPECT_TRUE(Attributes("again"));
}

TEST_F(FileShellTest, NamedPipeIsNoLinkFile) {
  ASSERT_EQ(mkfifo((folder_ / "pipe.url").c_str(), 0600), 0);
  fs::create_directories(folder_ / "History");
  ASSERT_EQ(mkfifo((folder_ / "History/pipe.url").c_str(), 0600), 0);
  EXPECT_EQ(Attributes("pipe.url").value() & kAttributeLink, 0U);
  EXPECT_EQ(Bind(folder_.Path())->GetDisplayNameOf("pipe.url"), "pipe.url");
  EXPECT_EQ(Bind(folder_ / "History")->GetPathOf("pipe.url"), "");
}

TEST_F(FileShellTest, KindsOfFilesShareASystemImage) {
  folder_.Write("a.txt", "");
  folder_.Write("b.txt", "");
  folder_.Write("c.png", "");
  fs::create_directory(folder_ / "folder");
  const auto index = [this](const std::string& name) {
    return shell_.SystemImageIndex(
        shell_.ParseDisplayName(folder_ / name).value_or(ItemIdList{"x"}));
  };
  EXPECT_GT(index("a.txt"), 0);
  EXPECT_EQ(index("a.txt"), index("b.txt"));
  EXPECT_NE(index("a.txt"), index("c.png"));
  EXPECT_NE(index("a.txt"), index("folder"));
  EXPECT_EQ(index("gone"), 0);
  EXPECT_NE(shell_.TypeName(folder_ / "a.txt"), "");
  EXPECT_EQ(shell_.TypeName(folder_ / "gone"), "");
}

TEST_F(FileShellTest, FilesAreMovedButNeverOverOthers) {
  folder_.Write("a", "one");
  folder_.Write("b", "two");
  EXPECT_THROW(shell_.Rename(folder_ / "a", folder_ / "b"), RunTimeError);
  EXPECT_EQ(folder_.Read("b"), "two");
  shell_.Rename(folder_ / "a", folder_ / "c");
  EXPECT_EQ(folder_.Read("c"), "one");
  EXPECT_THROW(shell_.Rename(folder_ / "gone", folder_ / "d"), RunTimeError);
}

TEST_F(FileShellTest, RemovingAFolderFollowsNoLinks) {
  folder_.Write("kept/x", "kept");
  folder_.Write("gone/y", "");
  fs::create_directory_symlink(folder_ / "kept", folder_ / "gone/link");
  shell_.Remove(folder_ / "gone");
  EXPECT_FALSE(folder_.Has("gone"));
  EXPECT_EQ(folder_.Read("kept/x"), "kept");
  EXPECT_THROW(shell_.Remove(folder_ / "gone"), RunTimeError);
}

TEST_F(FileShellTest, FoldersAreMadeWithThoseAbove) {
  shell_.MakeFolder(folder_ / "a/b/c");
  shell_.MakeFolder(folder_ / "a/b/c");
  EXPECT_TRUE(folder_.Has("a/b/c"));
  folder_.Write("file", "");
  EXPECT_THROW(shell_.MakeFolder(folder_ / "file/x"), RunTimeError);
}

}  // namespace
}  // namespace corvane::desktop
