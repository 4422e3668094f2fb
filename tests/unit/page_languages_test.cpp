// Each word of a page is said in its language, and the program's own in the program's.
#include "access/FullSentence.h"
#include "base/language.h"
#include "browser/reading/TextMap.h"
#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;
using ::testing::Contains;

ElementFacts Named(const std::string& name) {
  ElementFacts facts;
  facts.name = name;
  return facts;
}

/// A text as the tests below see it: each part with its language in front.
std::string Shown(const std::string& marked) {
  std::string shown;
  for (const LanguageRun& run : language::Runs(marked)) {
    shown += "[" + run.language + "]" + run.text;
  }
  return shown;
}

TEST(TextMapLanguages, AreThoseOfTheInnermostElement) {
  const std::string text = "Das ist a team mot da\nEnde";
  const TextMap map(PageTextMaker(text)
                        .Add(Kind::Language, "Das ist a team mot da", 0, 0, Named("de-DE"))
                        .Add(Kind::Language, "a team mot", 0, 0, Named("en"))
                        .Add(Kind::Language, "mot", 0, 0, Named("fr"))
                        .Make());
  EXPECT_EQ(Shown(map.Marked(0, 100)), "[de-de]Das ist [en]a team [fr]mot[de-de] da[]\nEnde");
  EXPECT_EQ(Shown(map.Marked(10, 6)), "[en]team [fr]m");
  EXPECT_EQ(map.LanguageAt(0), "de-de");
  EXPECT_EQ(map.LanguageAt(16), "fr");
  EXPECT_EQ(map.LanguageAt(25), "");
  EXPECT_EQ(map.Marked(3, 0), "");
}

TEST(TextMapLanguages, OneThatIsNoneIsNotSaid) {
  const TextMap map(
      PageTextMaker("a b").Add(Kind::Language, "a b", 0, 0, Named("no language at all")).Make());
  EXPECT_EQ(Shown(map.Marked(0, 3)), "[]a b");
}

TEST(TextMapLanguages, BeginAndEndTogether) {
  const TextMap map(PageTextMaker("eins two drei")
                        .Add(Kind::Language, "eins ", 0, 0, Named("de"))
                        .Add(Kind::Language, "two ", 0, 0, Named("en"))
                        .Add(Kind::Language, "drei", 0, 0, Named("de"))
                        .Make());
  EXPECT_EQ(Shown(map.Marked(0, 13)), "[de]eins [en]two [de]drei");
}

struct PageLanguages : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("Focus") = "5";
    p.StartTalking();
    p.Spoken();
  }
  static HTMLDocumentPtr Page() {
    auto page = MakePage("http://a/", "Preise", "Preise\nMehr dazu", {{"Mehr", "http://a/b"}});
    page->language = "de";
    return page;
  }
  void Read() {
    p.Read(Page());
    const std::string text = "Preise\nMehr dazu";
    p.Browser().TextDescribed(PageTextMaker(text)
                                  .Add(Kind::Language, text, 0, 0, Named("de"))
                                  .Add(Kind::Heading, "Preise", 2)
                                  .Add(Kind::Link, "Mehr")
                                  .Make());
    p.TextPane().SetFocus();
  }
};

TEST_F(PageLanguages, TheTitleIsSaidInThePages) {
  Read();
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=de\\Preise"));
}

TEST_F(PageLanguages, WhatIsSaidStandsInThePaneWithoutMarks) {
  Read();
  PageWords words;
  words.words = "Es ist da";
  words.dialog = "dialog";
  p.Browser().PageSays.Raise(words);
  const std::string text = p.TextPane().Text();
  EXPECT_EQ(text, language::Unmarked(text));
}

TEST_F(PageLanguages, LinksInTheListAreThePagesAndTheirCountIsOurs) {
  Read();
  p.Spoken();
  p.Links().SetFocus();
  EXPECT_THAT(p.Spoken(), Contains("1 Links in \\Lng=de\\Preise\\Lng=\\ Links List"));
  p.Links().SetListIndex(1);
  p.Links().Click.Raise();
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=de\\Mehr"));
}

TEST_F(PageLanguages, ALinkInTheListMayHaveALanguageOfItsOwn) {
  const auto page = Page();
  page->links.at(0)->language = "fr";
  p.Read(page);
  p.Spoken();
  p.Links().SetListIndex(1);
  p.Links().Click.Raise();
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=fr\\Mehr"));
}

TEST_F(PageLanguages, WhatIsReachedIsThePagesAndItsKindOurs) {
  Read();
  p.Spoken();
  p.TextPane().Press('K', 0, 'k');
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=de\\Mehr\\Lng=\\, link"));
}

TEST_F(PageLanguages, AWordThatTheCaretReachesIsThePages) {
  Read();
  p.TextPane().SetSelStart(p.TextPane().Text().find("Mehr"));
  p.TextPane().Press(kKeyRight, kCtrlMask);
  p.Spoken();
  p.TextPane().Press(kKeyRight, kCtrlMask);
  EXPECT_THAT(p.Spoken(), Contains(testing::StartsWith("\\Lng=de\\")));
}

TEST_F(PageLanguages, ALineOfBlanksIsBlankInEachLanguage) {
  const std::string text = "Preise\n\xC2\xA0\nMehr";
  p.Read(MakePage("http://a/", "Preise", text));
  p.Browser().TextDescribed(
      PageTextMaker(text).Add(Kind::Language, text, 0, 0, Named("de")).Make());
  p.TextPane().SetFocus();
  p.TextPane().SetSelStart(p.TextPane().Text().find("\nPreise") + 1);
  p.Spoken();
  p.TextPane().Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), ElementsAre("blank"));
}

TEST_F(PageLanguages, TheKindOfALineIsOurs) {
  Read();
  p.TextPane().Press('H', 0, 'h');
  p.Spoken();
  p.TextPane().Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), Contains("link, \\Lng=de\\Mehr dazu"));
}

TEST_F(PageLanguages, ReadingOnIsThePages) {
  Read();
  p.TextPane().SetSelStart(static_cast<int>(p.TextPane().Text().find("Preise")));
  p.Spoken();
  KeyEvent key{kKeyF7, 0};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=de\\Preise"));
}

TEST_F(PageLanguages, LiveWordsAreThePages) {
  Read();
  p.Browser().busy = false;
  p.Reading().SetEnabled(false);
  p.Spoken();
  PageWords words;
  words.words = "Gespeichert";
  words.urgent = true;
  p.Browser().PageSays.Raise(words);
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=de\\Gespeichert"));
  words.words = "Fini";
  words.language = "fr-ca";
  p.Browser().PageSays.Raise(words);
  EXPECT_THAT(p.Spoken(), Contains("\\Lng=fr-ca\\Fini"));
}

TEST_F(PageLanguages, WhatIsCopiedHasNoMarks) {
  Read();
  p.TextPane().Press('K', 0, 'k');
  KeyEvent key{'C', kCtrlMask | kShiftMask};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(p.desktop.clipboard.text, "Mehr, link");
}

TEST(FullSentenceLanguages, NameAndValueAreThePagesAndTheirRoleOurs) {
  HTMLElement field;
  field.type_name = "HTMLInputElement";
  field.type = "text";
  field.value = "gut";
  ElementFacts facts = Named(language::Marked("Urteil", "de"));
  facts.role = "textbox";
  facts.language = "de";
  facts.required = true;
  field.facts = std::make_shared<ElementFacts>(facts);
  EXPECT_EQ(Shown(FullSentence(field, TodaysManner())),
            "[]text, [de]Urteil[], [de]gut[], required");
}

}  // namespace
}  // namespace corvane::tests
