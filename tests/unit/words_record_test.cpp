// Reading what a page says by itself, also as nobody in his right mind sends it.
#include "web/page/WordsRecord.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane {
namespace {

TEST(PageWordsText, OnlyTheRightFormIsTaken) {
  EXPECT_EQ(ParsePageWords(R"({"words": "a", "urgent": true})")->words, "a");
  EXPECT_TRUE(ParsePageWords(R"({"words": "a", "urgent": true})")->urgent);
  EXPECT_EQ(ParsePageWords(R"({"more": 7})")->more, 7);
  EXPECT_EQ(ParsePageWords(R"({"words": "a", "language": "de_AT"})")->language, "de-at");
  EXPECT_EQ(ParsePageWords(R"({"words": "a", "language": "no language"})")->language, "");
  EXPECT_EQ(ParsePageWords(R"({"dialog": "dialog", "name": "n", "text": "t"})")->name, "n");
  for (const char* wrong : {"", "[]", "{}", "{\"words\": 7}", "{\"words\": \"\"}", "{\"more\": -1}",
                            "{\"more\": \"x\"}", "{\"dialog\": \"window\"}", "not json"}) {
    EXPECT_FALSE(ParsePageWords(wrong).has_value()) << wrong;
  }
  EXPECT_FALSE(ParsePageWords("{\"words\": \"" + std::string(5000, 'x') + "\"}").has_value());
}

}  // namespace
}  // namespace corvane
