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

TEST(LocalFileSystemTest, ReadsTheFrontOfAFile) {
  const test::TemporaryFolder folder;
  folder.Write("a.url", "[InternetShortcut]\r\n");
  const LocalFileSystem files;
  EXPECT_EQ(files.ReadText(folder / "a.url", 100), "[InternetShortcut]\r\n");
  EXPECT_EQ(files.ReadText(folder / "a.url", 5), "[Inte");
  EXPECT_THAT(files.ReadText(folder / "a.url", 0), IsEmpty());
}

TEST(LocalFileSystemTest, AbsentOrEndlessFilesGiveNothing) {
  const LocalFileSystem files;
  EXPECT_THAT(files.ReadText("/no/such/file", 100), IsEmpty());
  EXPECT_THAT(files.ReadText("/dev/zero", 100), IsEmpty());
}

}  // namespace
}  // namespace corvane::desktop
