#include "platform/linux/store/profile_text.h"

#include <gtest/gtest.h>

namespace corvane::desktop {
namespace {

TEST(ProfileTextTest, FindsAValueWhateverCaseLineEndsAndBlanks) {
  EXPECT_EQ(ProfileValue("[InternetShortcut]\r\nURL=http://a/\r\n", "internetshortcut", "url"),
            "http://a/");
  EXPECT_EQ(ProfileValue("[InternetShortcut]\rURL=http://a/\r", "InternetShortcut", "URL"),
            "http://a/");
  EXPECT_EQ(
      ProfileValue("  [ InternetShortcut ]  \n  URL  =  http://a/  \n", "InternetShortcut", "URL"),
      "http://a/");
  EXPECT_EQ(ProfileValue("\xEF\xBB\xBF[S]\nK=v", "s", "k"), "v");
}

TEST(ProfileTextTest, TakesOnePairOfQuotesOff) {
  EXPECT_EQ(ProfileValue("[S]\nK=\"a b\"", "S", "K"), "a b");
  EXPECT_EQ(ProfileValue("[S]\nK=' a '", "S", "K"), " a ");
  EXPECT_EQ(ProfileValue("[S]\nK=\"\"a\"\"", "S", "K"), "\"a\"");
  EXPECT_EQ(ProfileValue("[S]\nK=\"a'", "S", "K"), "\"a'");
  EXPECT_EQ(ProfileValue("[S]\nK=\"", "S", "K"), "\"");
}

TEST(ProfileTextTest, LooksOnlyIntoTheNamedSection) {
  const char* text = "K=outside\n[Other]\nK=other\n;[S]\n[S]\n;K=comment\nK=inside\n[S]\nL=late\n";
  EXPECT_EQ(ProfileValue(text, "S", "K"), "inside");
  EXPECT_EQ(ProfileValue(text, "S", "L"), "");
  EXPECT_EQ(ProfileValue(text, "None", "K"), "");
}

TEST(ProfileTextTest, RubbishIsPassedOver) {
  EXPECT_EQ(ProfileValue("[[[\n=\n]\n[S\n[]\n[S]\nno assignment\n==\nK=v=w\n", "S", "K"), "v=w");
  EXPECT_EQ(ProfileValue("", "S", "K"), "");
  EXPECT_EQ(ProfileValue("[S]\nK=", "S", "K"), "");
}

TEST(ProfileTextTest, CharactersAreNeverCut) {
  EXPECT_EQ(FirstCharacters("abc", 2), "ab");
  EXPECT_EQ(FirstCharacters("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", 2), "\xC3\xA9\xE2\x82\xAC");
  EXPECT_EQ(FirstCharacters("\xC3\xA9", 5), "\xC3\xA9");
  EXPECT_EQ(FirstCharacters("abc", 0), "");
}

}  // namespace
}  // namespace corvane::desktop
