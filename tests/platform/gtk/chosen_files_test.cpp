#include "platform/linux/gtk/chosen_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace corvane::desktop
