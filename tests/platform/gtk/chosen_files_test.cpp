#include "platform/linux/gtk/dialogs/chosen_files.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::Pair;
using testing::StartsWith;

TEST(ChosenFiles, OnePathIsWrittenWholeWithItsOffsets) {
  OpenFileName record;
  ASSERT_TRUE(FillChosen(record, {"/home/ann/page.html"}));
  EXPECT_EQ(record.file, "/home/ann/page.html" + std::string(241, '\0'));
  EXPECT_EQ(record.file_title.substr(0, 10), "page.html\0"s);
  EXPECT_EQ(record.file_offset, 10);
  EXPECT_EQ(record.file_extension, 15);
}

TEST(ChosenFiles, SeveralAreFolderAndNames) {
  OpenFileName record;
  record.max_file = 4095;
  record.flags = kAllowMultiSelect | kExplorerStyle;
  ASSERT_TRUE(FillChosen(record, {"/a b/one.htm", "/a b/two.htm"}));
  EXPECT_THAT(record.file, StartsWith("/a b\0one.htm\0two.htm\0\0"s));
  EXPECT_EQ(record.file_offset, 5);
  EXPECT_EQ(record.file_title.front(), '\0');
  record.flags = kAllowMultiSelect;
  ASSERT_TRUE(FillChosen(record, {"/a/one.htm", "/a/two.htm"}));
  EXPECT_THAT(record.file, StartsWith("/a one.htm two.htm\0"s));
}

TEST(ChosenFiles, OneOfSeveralPossibleIsAPathWithATitle) {
  OpenFileName record;
  record.flags = kAllowMultiSelect | kExplorerStyle;
  ASSERT_TRUE(FillChosen(record, {"/a/one.htm"}));
  EXPECT_THAT(record.file, StartsWith("/a/one.htm\0\0"s));
  EXPECT_THAT(record.file_title, StartsWith("one.htm\0"s));
}

TEST(ChosenFiles, ABufferThatIsTooSmallIsLeftAlone) {
  OpenFileName record;
  record.max_file = 10;
  EXPECT_FALSE(FillChosen(record, {"/home/ann/page.html"}));
  EXPECT_EQ(record.file, "");
}

TEST(ChosenFiles, RoomIsCountedInCharacters) {
  std::string path = "/";
  for (int i = 0; i < 200; ++i) path += "\u0436";
  OpenFileName record;
  EXPECT_EQ(record.max_file, 260);
  EXPECT_TRUE(FillChosen(record, {path})) << "401 bytes";
  EXPECT_THAT(record.file, StartsWith(path));
  EXPECT_FALSE(FillChosen(record, {path + path}));
}

TEST(ChosenFiles, FiltersAreDescriptionsAndPatterns) {
  EXPECT_THAT(FilterPairs("Pages (*.htm)|*.htm*|All|*"),
              ElementsAre(Pair("Pages (*.htm)", "*.htm*"), Pair("All", "*")));
  EXPECT_THAT(FilterPairs(""), ElementsAre());
  EXPECT_THAT(FilterPairs("Without a pattern"), ElementsAre());
}

TEST(ChosenFiles, TheDefaultExtensionIsAddedWhenThereIsNone) {
  EXPECT_EQ(WithExtension("/a.b/c", "txt"), "/a.b/c.txt");
  EXPECT_EQ(WithExtension("/a/c.htm", "txt"), "/a/c.htm");
  EXPECT_EQ(WithExtension("/a/c", ""), "/a/c");
}

/// The words as a user without special rights would hear them.
std::string HeardByAnybody(const std::function<std::string()>& words) {
  int ends[2];
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    constexpr uid_t kNobody = 65534;
    const bool is_nobody = geteuid() != 0 || setuid(kNobody) == 0;
    const std::string said = is_nobody ? words() : "still somebody";
    _exit(write(ends[1], said.data(), said.size()) < 0 ? 1 : 0);
  }
  close(ends[1]);
  std::string heard(1000, '\0');
  const auto length = read(ends[0], heard.data(), heard.size());
  close(ends[0]);
  waitpid(child, nullptr, 0);
  heard.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
  return heard;
}

class RefusalTest : public testing::Test {
 protected:
  void SetUp() override {
    std::filesystem::permissions(root_.Path(), std::filesystem::perms(0755));
    std::filesystem::create_directories(folder_ + "/inner");
    std::filesystem::permissions(folder_, std::filesystem::perms::all);
    std::ofstream(folder_ + "/page.html") << "text";
  }
  std::string Why(FileDialog::Kind kind, const std::string& name,
                  std::uint32_t flags = kFileMustExist) {
    return HeardByAnybody([&] { return Refusal(kind, flags, {folder_ + "/" + name}); });
  }
  std::string ToOpen(const std::string& name) { return Why(FileDialog::Kind::Open, name); }
  std::string ToSave(const std::string& name) { return Why(FileDialog::Kind::Save, name); }
  void Forbid(const std::string& name, std::filesystem::perms rights) {
    std::filesystem::permissions(folder_ + "/" + name, rights);
  }

  const test::TemporaryFolder root_;
  const std::string folder_ = root_ / "refusal";
};

TEST_F(RefusalTest, NothingIsAgainstAFileThatCanBeRead) {
  EXPECT_EQ(ToOpen("page.html"), "");
  EXPECT_EQ(ToSave("new.html"), "");
  Forbid("page.html", std::filesystem::perms::all);
  EXPECT_EQ(ToSave("page.html"), "");
}

TEST_F(RefusalTest, NoFileAndAFolderAreNoFiles) {
  EXPECT_EQ(Refusal(FileDialog::Kind::Open, 0, {}), "No file is chosen");
  EXPECT_EQ(ToOpen("inner"), "inner is a folder");
  EXPECT_EQ(ToSave("inner"), "inner is a folder");
}

TEST_F(RefusalTest, AFileThatHasGone) {
  EXPECT_EQ(ToOpen("gone.html"), "gone.html was not found");
  EXPECT_EQ(Why(FileDialog::Kind::Open, "gone.html", 0), "") << "where it need not exist";
}

TEST_F(RefusalTest, AFileThatMayNotBeReadOrWritten) {
  Forbid("page.html", std::filesystem::perms::none);
  EXPECT_EQ(ToOpen("page.html"), "page.html cannot be read");
  EXPECT_EQ(ToSave("page.html"), "page.html cannot be written there");
}

TEST_F(RefusalTest, AFolderThatHasGoneOrMayNotBeWritten) {
  EXPECT_EQ(ToSave("gone/new.html"), "The folder gone was not found");
  Forbid("inner", std::filesystem::perms::owner_read | std::filesystem::perms::others_read |
                      std::filesystem::perms::others_exec);
  EXPECT_EQ(ToSave("inner/new.html"), "new.html cannot be written there");
}

TEST_F(RefusalTest, NamesAreSaidAsTextWhateverTheyAreMadeOf) {
  const std::string words = ToOpen("bad \xFF name");
  EXPECT_TRUE(g_utf8_validate(words.c_str(), -1, nullptr)) << words;
  EXPECT_THAT(words, testing::EndsWith(" was not found"));
}

}  // namespace
}  // namespace corvane::desktop
