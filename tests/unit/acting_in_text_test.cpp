#include "browser/reading/ActingInText.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;

struct ActingInTextTest : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("Focus") = "5";
    p.StartTalking();
    p.Read(MakePage("http://a/", "Title", "Menu\nDelete\nEnd"));
    p.Browser().TextDescribed(Text("Menu\nDelete\nEnd"));
    p.TextPane().SetFocus();
    p.Spoken();
  }
  /// The page with what its buttons have brought in front of "Menu"; elements keep their
  /// numbers.
  static PageTextPtr Text(const std::string& text) {
    PageTextMaker maker(text);
    for (const auto& [words, number] : {std::pair{"Yes", 3}, {"Menu", 1}, {"Delete", 2}}) {
      if (text.find(words) == std::string::npos) continue;
      maker.Add(Kind::Button, words);
      maker.Page().spans.back().number = number;
    }
    return maker.Make();
  }
  void Press(char key) { p.TextPane().Press(key, 0, key + ('a' - 'A')); }
  void Use(const std::string& words) {
    while (AtCaret() != words) Press('B');
    p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
    p.Spoken();
    p.Browser().calls.clear();
  }
  /// The page leads its focus to an element, whose event says it.
  void Focus(int number, const std::string& type_name = "HTMLButtonElement") {
    p.Browser().focused = std::make_shared<HTMLElement>();
    p.Browser().focused->type_name = type_name;
    p.Browser().focused->type = type_name == "HTMLInputElement" ? "text" : "";
    p.Browser().FocusMoved.Raise({"document", number});
  }
  std::string AtCaret() {
    const std::string rest =
        text::mid(p.TextPane().text, static_cast<std::size_t>(p.TextPane().start) + 1);
    return rest.substr(0, rest.find('\n'));
  }
};

TEST_F(ActingInTextTest, WhatAUseHasChangedStandsInTheTextAndThePlaceStays) {
  Use("Delete");
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Sure?\nMenu\nDelete\nEnd"));
  EXPECT_NE(p.TextPane().text.find("Sure?\nMenu"), std::string::npos);
  EXPECT_EQ(AtCaret(), "Delete");
  EXPECT_THAT(p.Spoken(), ElementsAre("Sure?"));
  p.TextPane().Press(kKeyLeft);
  p.Spoken();
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Done now\nMenu\nDelete\nEnd"));
  EXPECT_NE(p.TextPane().text.find("Done now\nMenu"), std::string::npos) << "however much later";
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "its reader has gone on";
}

TEST_F(ActingInTextTest, WordsThatComeWithoutAnythingSaidAreSaidWithTheirLine) {
  Use("Delete");
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Menu\nDelete\nEnd 1"));
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Menu\nDelete\nEnd 12"));
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Menu\nDelete\nEnd"));
  EXPECT_THAT(p.Spoken(), ElementsAre("End 1", "End 12"));
}

TEST_F(ActingInTextTest, APageThatChangesWithoutEndIsHeardThreeTimes) {
  Use("Delete");
  for (int i = 1; i <= 5; ++i) {
    p.Browser().TextChanged.Raise();
    p.Browser().TextDescribed(Text("Menu\nDelete\nTick " + std::to_string(i)));
  }
  EXPECT_THAT(p.Spoken(), ElementsAre("Tick 1", "Tick 2", "Tick 3"));
}

TEST_F(ActingInTextTest, WhoIsElsewhereFindsTheChangeWhenHeComesBack) {
  p.Address().SetFocus();
  p.Browser().TextChanged.Raise();
  EXPECT_EQ(p.Browser().describing_text, nullptr) << "nobody needs it now";
  p.TextPane().SetFocus();
  p.Browser().TextDescribed(Text("New\nMenu\nDelete\nEnd"));
  EXPECT_NE(p.TextPane().text.find("New\nMenu"), std::string::npos);
}

TEST_F(ActingInTextTest, WhatWasDoneInThePageStandsInTheTextAfterIt) {
  p.Browser().SetFocus();
  p.TextPane().SetFocus();
  EXPECT_NE(p.Browser().describing_text, nullptr);
}

TEST_F(ActingInTextTest, ThePagesFocusTakesTheReaderAlong) {
  Use("Delete");
  Focus(3);
  p.Browser().TextDescribed(Text("Sure?\nYes\nMenu\nDelete\nEnd"));
  EXPECT_EQ(AtCaret(), "Yes");
  EXPECT_EQ(p.desktop.focus, "Text1");
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "the element's event has said it";
  p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Browser().calls, ::testing::Contains("Use 3"));
}

TEST_F(ActingInTextTest, AFieldThatGetsTheFocusIsTypedIn) {
  Use("Delete");
  Focus(3, "HTMLInputElement");
  EXPECT_THAT(p.Browser().calls, ElementsAre("Follow 3"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(ActingInTextTest, WhoHasReadOnIsNotLedElsewhere) {
  Use("Delete");
  p.TextPane().Press(kKeyUp);
  Focus(3);
  EXPECT_EQ(p.Browser().describing_text, nullptr);
  Focus(3, "HTMLInputElement");
  EXPECT_THAT(p.Browser().calls, testing::Not(testing::Contains("Follow 3")));
}

TEST_F(ActingInTextTest, WhoOnlyWantsSilenceIsLedAlong) {
  Use("Delete");
  p.TextPane().Press(kKeyControl, kCtrlMask);
  Focus(3, "HTMLInputElement");
  EXPECT_THAT(p.Browser().calls, testing::Contains("Follow 3"));
}

TEST_F(ActingInTextTest, APageThatMovesItsFocusLongAfterTakesNobodyIntoAField) {
  Use("Delete");
  p.Browser().document->unasked = true;
  Focus(3, "HTMLInputElement");
  EXPECT_THAT(p.Browser().calls, testing::Not(testing::Contains("Follow 3")));
  p.Browser().TextDescribed(Text("Sure?\nYes\nMenu\nDelete\nEnd"));
  EXPECT_EQ(AtCaret(), "Yes") << "Enter leads there";
}

TEST_F(ActingInTextTest, WhoseWayIntoTheFieldCameToNothingHearsThePageAsEver) {
  Use("Delete");
  Focus(3, "HTMLInputElement");
  p.TextPane().Press(kKeyUp);
  p.Spoken();
  p.Browser().SetFocus();
  EXPECT_THAT(p.Spoken(), testing::Contains("WebBrowser"));
}

TEST_F(ActingInTextTest, AKeyBeforeTheTextHasComeKeepsTheReaderWhereItLed) {
  Use("Menu");
  Focus(3);
  Press('B');
  p.Spoken();
  p.Browser().TextDescribed(Text("Sure?\nYes\nMenu\nDelete\nEnd"));
  EXPECT_EQ(AtCaret(), "Delete");
}

TEST_F(ActingInTextTest, AFocusThatMovesByItselfLeadsNobody) {
  Focus(3);
  EXPECT_EQ(p.Browser().describing_text, nullptr);
  p.Address().SetFocus();
  Focus(3, "HTMLInputElement");
  EXPECT_THAT(p.Browser().calls, testing::Not(testing::Contains("Follow 3")));
}

TEST_F(ActingInTextTest, WhatTakesItselfAwayLeavesItsReaderAtWhatIsThere) {
  Use("Delete");
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Menu\nEnd"));
  EXPECT_THAT(p.Spoken(), ElementsAre("End"));
}

TEST_F(ActingInTextTest, WhatTakesItselfAwayIsNotToldTwice) {
  Use("Delete");
  p.Browser().Announcement.Raise("Opened: Sure?");
  p.Spoken();
  p.Browser().TextChanged.Raise();
  p.Browser().TextDescribed(Text("Menu\nEnd"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
