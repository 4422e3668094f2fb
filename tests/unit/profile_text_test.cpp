#include "base/profile_text.h"

#include <gtest/gtest.h>

namespace corvane::profile {
namespace {

TEST(ProfileTextTest, FindsAValueWhateverCaseLineEndsAndBlanks) {
  EXPECT_EQ(value("[InternetShortcut]\r\nURL=http://a/\r\n", "internetshortcut", "url"),
            "http://a/");
  EXPECT_EQ(value("[InternetShortcut]\rURL=http://a/\r", "InternetShortcut", "URL"), "http://a/");
  EXPECT_EQ(value("  [ InternetShortcut ]  \n  URL  =  http://a/  \n", "InternetShortcut", "URL"),
            "http://a/");
  EXPECT_EQ(value("\xEF\xBB\xBF[S]\nK=v", "s", "k"), "v");
}

TEST(ProfileTextTest, TakesOnePairOfQuotesOff) {
  EXPECT_EQ(value("[S]\nK=\"a b\"", "S", "K"), "a b");
  EXPECT_EQ(value("[S]\nK=' a '", "S", "K"), " a ");
  EXPECT_EQ(value("[S]\nK=\"\"a\"\"", "S", "K"), "\"a\"");
  EXPECT_EQ(value("[S]\nK=\"a'", "S", "K"), "\"a'");
  EXPECT_EQ(value("[S]\nK=\"", "S", "K"), "\"");
}

TEST(ProfileTextTest, LooksOnlyIntoTheNamedSection) {
  const char* text = "K=outside\n[Other]\nK=other\n;[S]\n[S]\n;K=comment\nK=inside\n[S]\nL=late\n";
  EXPECT_EQ(value(text, "S", "K"), "inside");
  EXPECT_EQ(value(text, "S", "L"), "");
  EXPECT_EQ(value(text, "None", "K"), "");
}

TEST(ProfileTextTest, RubbishIsPassedOver) {
  EXPECT_EQ(value("[[[\n=\n]\n[S\n[]\n[S]\nno assignment\n==\nK=v=w\n", "S", "K"), "v=w");
  EXPECT_EQ(value("", "S", "K"), "");
  EXPECT_EQ(value("[S]\nK=", "S", "K"), "");
}

}  // namespace
}  // namespace corvane::profile
