#include "speech/SpokenLanguages.h"

#include <gmock/gmock.h>

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using language::Marked;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(SpokenLanguages, WithoutAnyMarkItIsTheProgramsOwn) {
  EXPECT_THAT(SpokenRuns("Done, 3 links"), ElementsAre(LanguageRun{"Done, 3 links", "en"}));
  EXPECT_THAT(SpokenRuns(""), IsEmpty());
}

TEST(SpokenLanguages, LettersDecideWhereNothingIsSaid) {
  EXPECT_THAT(SpokenRuns("link, Новости дня"),
              ElementsAre(LanguageRun{"link, ", "en"}, LanguageRun{"Новости дня", "ru"}));
  EXPECT_THAT(SpokenRuns("東京タワー"), ElementsAre(LanguageRun{"東京タワー", "ja"}));
  EXPECT_THAT(SpokenRuns("新闻 and 뉴스"),
              ElementsAre(LanguageRun{"新闻 ", "zh"}, LanguageRun{"and ", "en"},
                          LanguageRun{"뉴스", "ko"}));
  EXPECT_THAT(SpokenRuns("שלום, مرحبا"),
              ElementsAre(LanguageRun{"שלום, ", "he"}, LanguageRun{"مرحبا", "ar"}));
}

TEST(SpokenLanguages, LettersDecideWhereWhatIsSaidCannotBeRight) {
  EXPECT_THAT(SpokenRuns(Marked("Новости", "en")), ElementsAre(LanguageRun{"Новости", "ru"}));
  EXPECT_THAT(SpokenRuns(Marked("Новини", "uk")), ElementsAre(LanguageRun{"Новини", "uk"}));
  EXPECT_THAT(SpokenRuns(Marked("Скачать Firefox", "ru")),
              ElementsAre(LanguageRun{"Скачать ", "ru"}, LanguageRun{"Firefox", "en"}));
}

TEST(SpokenLanguages, ALanguageOfTwoAlphabetsIsRightInBoth) {
  EXPECT_THAT(SpokenRuns(Marked("Vesti", "sr")), ElementsAre(LanguageRun{"Vesti", "sr"}));
  EXPECT_THAT(SpokenRuns(Marked("Вести", "sr")), ElementsAre(LanguageRun{"Вести", "sr"}));
}

TEST(SpokenLanguages, TheOwnLanguageOfAnotherCountryIsTheOwn) {
  EXPECT_THAT(SpokenRuns("link, " + Marked("Colors", "en-us")),
              ElementsAre(LanguageRun{"link, Colors", "en"}));
}

TEST(SpokenLanguages, NumbersAreInTheLanguageAroundThem) {
  EXPECT_THAT(SpokenRuns(Marked("21 Preise", "de")), ElementsAre(LanguageRun{"21 Preise", "de"}));
  EXPECT_THAT(SpokenRuns(Marked("1945", "de") + ", link"),
              ElementsAre(LanguageRun{"1945", "de"}, LanguageRun{", link", "en"}));
}

TEST(SpokenLanguages, MarksAloneChangeNoVoice) {
  EXPECT_THAT(SpokenRuns(Marked("Ja", "de") + ", " + Marked("Nein", "de")),
              ElementsAre(LanguageRun{"Ja, Nein", "de"}));
  EXPECT_THAT(SpokenRuns("(" + Marked("Ja", "de") + ")"), ElementsAre(LanguageRun{"(Ja)", "de"}));
}

TEST(SpokenLanguages, ALoneLetterOfAnotherAlphabetIsASign) {
  EXPECT_THAT(SpokenRuns("the α of 5 Ω"), ElementsAre(LanguageRun{"the α of 5 Ω", "en"}));
}

TEST(SpokenLanguages, AnyBytesAreSurvived) {
  std::string bytes;
  for (int i = 1; i < 256; ++i) bytes += static_cast<char>(i);
  std::string spoken;
  for (const LanguageRun& run : SpokenRuns(bytes)) spoken += run.text;
  EXPECT_EQ(spoken, bytes);
}

struct SpokenLanguagesOfTheProgram : testing::Test {
  Program p;

  std::vector<std::string> TitleOf(const std::string& manner, const std::string& title) {
    p.desktop.settings.Main("Manner") = manner;
    p.StartTalking();
    p.Spoken();
    p.Read(MakePage("http://a/", title, "text"));
    return p.Spoken();
  }
};

TEST_F(SpokenLanguagesOfTheProgram, ATitleIsSpokenInTheLanguageOfItsLetters) {
  EXPECT_THAT(TitleOf("1", "Новости"), testing::Contains("\\Lng=ru\\Новости"));
}

TEST_F(SpokenLanguagesOfTheProgram, TheEstablishedMannerHasOneVoice) {
  EXPECT_THAT(TitleOf("0", "Новости"), testing::Contains("Новости"));
}

TEST_F(SpokenLanguagesOfTheProgram, TheSettingAloneDecides) {
  p.desktop.settings.Main("Languages") = "False";
  EXPECT_THAT(TitleOf("1", "Новости"), testing::Contains("Новости"));
}

TEST_F(SpokenLanguagesOfTheProgram, APageCannotWriteTags) {
  EXPECT_THAT(TitleOf("1", "\\Lng=ru\\hello"), testing::Contains("/Lng=ru/hello"));
}

}  // namespace
}  // namespace corvane::tests
