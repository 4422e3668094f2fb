#include "platform/linux/store/ini_settings_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class IniSettingsStoreTest : public testing::Test {
 protected:
  std::string Get(const IniSettingsStore& store, const std::string& key,
                  const std::string& fallback = "fallback") {
    return store.GetSetting("Corvane", "Settings", key, fallback);
  }
  void Save(IniSettingsStore& store, const std::string& key, const std::string& value) {
    store.SaveSetting("Corvane", "Settings", key, value);
  }
  void Listen(IniSettingsStore& store) {
    listening_ += store.Problem.Connect([this](const std::string& text) { told_.push_back(text); });
  }

  test::TemporaryFolder folder_;
  Connections listening_;
  std::vector<std::string> told_;
};

TEST_F(IniSettingsStoreTest, AnUnknownValueIsTheCallersFallback) {
  const IniSettingsStore store(folder_ / "user", {});
  EXPECT_EQ(Get(store, "Rate"), "fallback");
  EXPECT_FALSE(folder_.Has("user")) << "reading must not make files";
}

TEST_F(IniSettingsStoreTest, ASavedValueIsThereForTheNextProcess) {
  IniSettingsStore store(folder_ / "user/corvane", {});
  Save(store, "Rate", "3");
  EXPECT_EQ(Get(store, "Rate"), "3");
  const IniSettingsStore next(folder_ / "user/corvane", {});
  EXPECT_EQ(Get(next, "Rate"), "3");
  EXPECT_EQ(folder_.Read("user/corvane/Corvane.ini"), "[Settings]\nRate=3\n");
}

TEST_F(IniSettingsStoreTest, OnlyTheOwnerCanReadTheFile) {
  IniSettingsStore store(folder_ / "user", {});
  Save(store, "Rate", "3");
  struct stat info {};
  ASSERT_EQ(stat((folder_ / "user/Corvane.ini").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

TEST_F(IniSettingsStoreTest, EveryTextComesBackAsItWas) {
  for (const std::string value :
       {"", " leading", "trailing ", "two\nlines\r\nand\ta tab", "back\\slash", "a=b;c#d", "[x]",
        "caf\xC3\xA9 \xF0\x9F\x98\x80", "\"quoted\""}) {
    IniSettingsStore store(folder_ / "user", {});
    Save(store, "Text", value);
    const IniSettingsStore next(folder_ / "user", {});
    EXPECT_EQ(Get(next, "Text"), value);
  }
}

TEST_F(IniSettingsStoreTest, OddNamesAreKeptApartAndStayInTheFolder) {
  IniSettingsStore store(folder_ / "user", {});
  store.SaveSetting("../evil", "Set]tings", "a=b", "1");
  store.SaveSetting("../evil", "Set]tings", "[a", "2");
  EXPECT_EQ(store.GetSetting("../evil", "Set]tings", "a=b", ""), "1");
  EXPECT_EQ(store.GetSetting("../evil", "Set]tings", "[a", ""), "2");
  EXPECT_FALSE(folder_.Has("evil.ini"));
}

TEST_F(IniSettingsStoreTest, ApplicationsDoNotShareValues) {
  IniSettingsStore store(folder_ / "user", {});
  store.SaveSetting("pnlBrowser", "Settings", "Home", "2");
  EXPECT_EQ(Get(store, "Home"), "fallback");
  EXPECT_EQ(store.GetSetting("pnlBrowser", "Settings", "Home", ""), "2");
}

TEST_F(IniSettingsStoreTest, DefaultsLieBelowTheUsersValuesAndEarlierFoldersWin) {
  folder_.Write("first/Corvane.ini", "[Settings]\nSpeech=True\n");
  folder_.Write("second/Corvane.ini", "[Settings]\nSpeech=False\nRate=1\n");
  IniSettingsStore store(folder_ / "user", {folder_ / "first", folder_ / "second"});
  EXPECT_EQ(Get(store, "Speech"), "True");
  EXPECT_EQ(Get(store, "Rate"), "1");
  EXPECT_EQ(Get(store, "Pitch"), "fallback");
  Save(store, "Speech", "False");
  EXPECT_EQ(Get(store, "Speech"), "False");
  EXPECT_EQ(folder_.Read("first/Corvane.ini"), "[Settings]\nSpeech=True\n");
}

TEST_F(IniSettingsStoreTest, TwoProcessesDoNotLoseEachOthersValues) {
  IniSettingsStore one(folder_ / "user", {});
  IniSettingsStore two(folder_ / "user", {});
  Save(one, "Rate", "1");
  Save(two, "Pitch", "2");
  Save(one, "Home", "3");
  const IniSettingsStore next(folder_ / "user", {});
  EXPECT_EQ(Get(next, "Rate"), "1");
  EXPECT_EQ(Get(next, "Pitch"), "2");
  EXPECT_EQ(Get(next, "Home"), "3");
  EXPECT_EQ(Get(one, "Pitch"), "2") << "what the other wrote is seen at once";
}

TEST_F(IniSettingsStoreTest, ABrokenFileIsKeptBesideAndToldOnce) {
  folder_.Write("user/Corvane.ini", "\x01\x02 rubbish\n");
  IniSettingsStore store(folder_ / "user", {});
  Listen(store);
  EXPECT_EQ(Get(store, "Rate"), "fallback");
  EXPECT_EQ(Get(store, "Rate"), "fallback");
  Save(store, "Rate", "4");
  EXPECT_EQ(Get(store, "Rate"), "4");
  EXPECT_EQ(folder_.Read("user/Corvane.ini.broken"), "\x01\x02 rubbish\n");
  EXPECT_THAT(told_, ElementsAre(HasSubstr("Corvane.ini.broken")));
}

TEST_F(IniSettingsStoreTest, ASecondBrokenFileDoesNotReplaceTheFirst) {
  folder_.Write("user/Corvane.ini.broken", "older");
  folder_.Write("user/Corvane.ini", "rubbish");
  const IniSettingsStore store(folder_ / "user", {});
  EXPECT_EQ(Get(store, "Rate"), "fallback");
  EXPECT_EQ(folder_.Read("user/Corvane.ini.broken"), "older");
  EXPECT_EQ(folder_.Read("user/Corvane.ini.broken.1"), "rubbish");
}

TEST_F(IniSettingsStoreTest, SomethingThatIsNoFileIsPutAsideToo) {
  std::filesystem::create_directories(folder_ / "user/Corvane.ini");
  IniSettingsStore store(folder_ / "user", {});
  Listen(store);
  Save(store, "Rate", "4");
  const IniSettingsStore next(folder_ / "user", {});
  EXPECT_EQ(Get(next, "Rate"), "4");
  EXPECT_EQ(told_.size(), 1U);
}

TEST_F(IniSettingsStoreTest, WhereNothingCanBeWrittenValuesHoldUntilTheEnd) {
  folder_.Write("occupied", "a file where the folder would have to be");
  IniSettingsStore store(folder_ / "occupied/corvane", {});
  Listen(store);
  Save(store, "Rate", "1");
  Save(store, "Pitch", "2");
  EXPECT_EQ(Get(store, "Rate"), "1");
  EXPECT_EQ(Get(store, "Pitch"), "2");
  EXPECT_THAT(told_, ElementsAre(HasSubstr("could not be saved")));
}

TEST_F(IniSettingsStoreTest, ValuesThatCouldNotBeSavedGoIntoTheNextFile) {
  folder_.Write("later", "in the way");
  IniSettingsStore store(folder_ / "later/corvane", {});
  Save(store, "Rate", "1");
  std::filesystem::remove(folder_ / "later");
  Save(store, "Pitch", "2");
  const IniSettingsStore next(folder_ / "later/corvane", {});
  EXPECT_EQ(Get(next, "Rate"), "1");
  EXPECT_EQ(Get(next, "Pitch"), "2");
}

TEST_F(IniSettingsStoreTest, AHandWrittenValueWithALoneBackslashIsReadAsItStands) {
  folder_.Write("user/Corvane.ini", "[Settings]\nPath=C:\\dir\n");
  const IniSettingsStore store(folder_ / "user", {});
  EXPECT_EQ(Get(store, "Path"), "C:\\dir");
}

TEST_F(IniSettingsStoreTest, AnEmptyFileIsNoTrouble) {
  folder_.Write("user/Corvane.ini", "");
  IniSettingsStore store(folder_ / "user", {});
  Listen(store);
  EXPECT_EQ(Get(store, "Rate"), "fallback");
  EXPECT_THAT(told_, IsEmpty());
}

}  // namespace
}  // namespace corvane::desktop
