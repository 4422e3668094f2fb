#include "platform/linux/store/local_file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/error.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(LocalFileSystemTest, TheProgramsFolderIsThatOfTheExecutable) {
  const LocalFileSystem files;
  EXPECT_EQ(files.ProgramFolder(),
            std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
  EXPECT_EQ(LocalFileSystem("/opt/other").ProgramFolder(), "/opt/other");
}

TEST(LocalFileSystemTest, ReadsLinesWithoutTheirEnds) {
  const test::TemporaryFolder folder;
  folder.Write("text", "\xEF\xBB\xBFone\r\ntwo\n\n\tthree");
  const LocalFileSystem files;
  EXPECT_THAT(files.ReadLines(folder / "text"), ElementsAre("one", "two", "", "\tthree"));
}

TEST(LocalFileSystemTest, InvalidBytesBecomeReplacementCharacters) {
  const test::TemporaryFolder folder;
  folder.Write("text", "a\xFFz\n");
  EXPECT_THAT(LocalFileSystem().ReadLines(folder / "text"), ElementsAre("a\xEF\xBF\xBDz"));
}

TEST(LocalFileSystemTest, AFileThatCannotBeReadIsAnError) {
  const test::TemporaryFolder folder;
  const LocalFileSystem files;
  EXPECT_THROW(files.ReadLines(folder / "absent"), RunTimeError);
  EXPECT_THROW(files.ReadLines(folder.Path()), RunTimeError);
  EXPECT_FALSE(files.Exists(folder / "absent"));
  EXPECT_TRUE(files.Exists(folder.Path()));
}

TEST(LocalFileSystemTest, WritesAndReplacesWholeFiles) {
  const test::TemporaryFolder folder;
  LocalFileSystem files;
  files.Write(folder / "file", "first and longer");
  files.Write(folder / "file", "second");
  EXPECT_EQ(folder.Read("file"), "second");
  EXPECT_THROW(files.Write(folder / "no/such/folder", "x"), RunTimeError);
}

TEST(LocalFileSystemTest, ReadsAValueOfAProfileFile) {
  const test::TemporaryFolder folder;
  folder.Write("a.url", "[InternetShortcut]\r\nURL=http://example.org/\r\n");
  const LocalFileSystem files;
  const auto value = [&](std::size_t size) {
    return files.GetPrivateProfileString("InternetShortcut", "URL", size, folder / "a.url");
  };
  EXPECT_EQ(value(127), "http://example.org/");
  EXPECT_EQ(value(5), "http");
  EXPECT_THAT(value(1), IsEmpty());
  EXPECT_THAT(value(0), IsEmpty());
}

TEST(LocalFileSystemTest, AValueOf200CharactersComesBackWith126) {
  const test::TemporaryFolder folder;
  std::string value;
  std::string expected;
  for (int i = 0; i < 200; ++i) value += "\xC3\xA9";
  for (int i = 0; i < 126; ++i) expected += "\xC3\xA9";
  folder.Write("a.url", "[S]\nK=" + value);
  EXPECT_EQ(LocalFileSystem().GetPrivateProfileString("S", "K", 127, folder / "a.url"), expected);
}

TEST(LocalFileSystemTest, AbsentOrEndlessFilesGiveNothing) {
  const LocalFileSystem files;
  EXPECT_THAT(files.GetPrivateProfileString("S", "K", 127, "/no/such/file"), IsEmpty());
  EXPECT_THAT(files.GetPrivateProfileString("S", "K", 127, "/dev/zero"), IsEmpty());
}

}  // namespace
}  // namespace corvane::desktop
