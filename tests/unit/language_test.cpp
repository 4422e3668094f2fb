#include "base/language.h"

#include <gmock/gmock.h>

namespace corvane::tests {
namespace {

using language::Marked;
using language::Runs;
using language::Tag;
using language::Unmarked;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Language, NamesAreKeptInSmallLetters) {
  EXPECT_EQ(Tag("de"), "de");
  EXPECT_EQ(Tag("pt-BR"), "pt-br");
  EXPECT_EQ(Tag("en_GB"), "en-gb");
  EXPECT_EQ(language::Primary("pt-br"), "pt");
  EXPECT_EQ(language::Primary("de"), "de");
}

TEST(Language, WhatIsNoNameIsNone) {
  EXPECT_EQ(Tag(""), "");
  EXPECT_EQ(Tag("x"), "");
  EXPECT_EQ(Tag("de\\"), "");
  EXPECT_EQ(Tag("deutsch, bitte"), "");
  EXPECT_EQ(Tag(std::string(1000, 'a')), "");
}

TEST(Language, AMarkedTextIsFoundAgainInWhatStandsAroundIt) {
  const std::string text = "link, " + Marked("Preise", "de") + ", visited";
  EXPECT_THAT(Runs(text), ElementsAre(LanguageRun{"link, ", ""}, LanguageRun{"Preise", "de"},
                                      LanguageRun{", visited", ""}));
  EXPECT_EQ(Unmarked(text), "link, Preise, visited");
}

TEST(Language, WhatIsMarkedWithinAMarkedTextKeepsItsOwn) {
  const std::string text = Marked("Das " + Marked("Team", "en") + " spielt", "de");
  EXPECT_THAT(Runs(text), ElementsAre(LanguageRun{"Das ", "de"}, LanguageRun{"Team", "en"},
                                      LanguageRun{" spielt", "de"}));
}

TEST(Language, WithoutALanguageOrWordsNothingIsMarked) {
  EXPECT_EQ(Marked("word", ""), "word");
  EXPECT_EQ(Marked("", "de"), "");
  EXPECT_THAT(Runs(""), IsEmpty());
}

TEST(Language, AFlagMadeOfTagCharactersIsNoMark) {
  const std::string england =
      "\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F";
  EXPECT_EQ(Unmarked(england), england);
}

TEST(Language, BrokenMarksAreLeftOut) {
  EXPECT_THAT(Runs("a\U000E0001"), ElementsAre(LanguageRun{"a", ""}));
  EXPECT_THAT(Runs("a\U000E0001\U000E007Fb"), ElementsAre(LanguageRun{"ab", ""}));
  EXPECT_THAT(Runs("a\U000E0001\U000E0064b"), ElementsAre(LanguageRun{"ab", ""}));
  EXPECT_THAT(Runs(std::string("a\U000E0001") + "\xF3\xA0"),
              ElementsAre(LanguageRun{"a\xF3\xA0", ""}));
}

}  // namespace
}  // namespace corvane::tests
