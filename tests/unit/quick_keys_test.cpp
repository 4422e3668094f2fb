#include "browser/reading/QuickKeys.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;
using ::testing::Contains;
using ::testing::Not;

constexpr const char* kText = "Menu\nPrices\nSee Next week now\nDetails\nName, Al\nEnd";

/// True when the window has used the key.
bool PressInWindow(Program& p, int code, int shift = 0) {
  KeyEvent key{code, shift};
  p.Inside().form->KeyDown.Raise(key);
  return key.KeyCode == 0;
}

struct QuickKeysTest : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("Focus") = "5";
    p.StartTalking();
    Read("http://a/");
  }
  void Read(const std::string& address) {
    p.Read(MakePage(address, "T\xC3\xADtle", "Menu\nPrices\nSee Next week now\nDetails\nEnd"));
    p.Browser().TextDescribed(Text());
    p.TextPane().SetFocus();
    p.Spoken();
    p.Browser().calls.clear();
  }
  static PageTextPtr Text() {
    ElementFacts edit;
    edit.role = "textbox";
    edit.name = "Name";
    edit.value = "Al";
    return PageTextMaker(kText)
        .Add(Kind::Link, "Menu")
        .Add(Kind::Heading, "Prices", 2)
        .Add(Kind::Link, "Next week")
        .Add(Kind::Heading, "Details", 3)
        .Add(Kind::Edit, "Name, Al", 0, 0, edit)
        .Make();
  }
  void Press(char key, int shift = 0) { p.TextPane().Press(key, shift, key + ('a' - 'A')); }
  std::string AtCaret() {
    const std::string rest =
        text::mid(p.TextPane().text, static_cast<std::size_t>(p.TextPane().start) + 1);
    return rest.substr(0, rest.find('\n'));
  }
};

TEST_F(QuickKeysTest, ThePageStandsThereWithItsFields) {
  EXPECT_EQ(p.TextPane().text.find("Done"), std::string::npos) << "cleared with the new page";
  EXPECT_NE(p.TextPane().text.find(kText), std::string::npos) << p.TextPane().text;
}

TEST_F(QuickKeysTest, ALetterLeadsToTheNextOfItsKindAndWithShiftBack) {
  Press('H');
  EXPECT_EQ(AtCaret(), "Prices");
  Press('H');
  EXPECT_EQ(AtCaret(), "Details");
  Press('H');
  EXPECT_EQ(AtCaret(), "Details") << "the place stays";
  Press('H', kShiftMask);
  Press('H', kShiftMask);
  EXPECT_THAT(p.Spoken(),
              ElementsAre("Prices, heading level 2", "Details, heading level 3", "No next heading",
                          "Prices, heading level 2", "No previous heading"));
  Press('3');
  Press('1');
  Press('E');
  Press('K', kShiftMask);
  Press('K', kShiftMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("Details, heading level 3", "No next heading level 1",
                                      "Name, edit, Al", "Next week, link", "Menu, link"));
  EXPECT_EQ(p.TextPane().text.find("hhh"), std::string::npos);
}

TEST_F(QuickKeysTest, ComboBoxThatIsWrittenInIsAnEditFieldToo) {
  ElementFacts box;
  box.role = "combobox";
  box.name = "To";
  p.Read(MakePage("http://b/", "T", "To"));
  p.Browser().TextDescribed(PageTextMaker("x To").Add(Kind::Edit, "To", 0, 0, box).Make());
  p.TextPane().SetFocus();
  p.Spoken();
  Press('E');
  EXPECT_THAT(p.Spoken(), ElementsAre("To, combo box"));
  p.TextPane().Press(kKeyHome, kCtrlMask);
  p.Spoken();
  Press('C');
  EXPECT_THAT(p.Spoken(), ElementsAre("To, combo box"));
}

TEST_F(QuickKeysTest, ThePageScrollsAlong) {
  Press('H');
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 2"));
}

TEST_F(QuickKeysTest, ElementsThatBeginTogetherAreEachReached) {
  PageTextMaker maker("one two");
  maker.Add(Kind::Landmark, "one two").Add(Kind::Landmark, "one").Add(Kind::Landmark, "two");
  p.Read(MakePage("http://b/", "T", "one two"));
  p.Browser().TextDescribed(maker.Make());
  p.TextPane().SetFocus();
  p.Browser().calls.clear();
  for (int i = 0; i < 3; ++i) Press('D');
  for (int i = 0; i < 2; ++i) Press('D', kShiftMask);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 1", "Show 2", "Show 3", "Show 2", "Show 1"));
}

TEST_F(QuickKeysTest, AfterAKeyTheArrowsGoOnFromThere) {
  Press('H');
  p.Spoken();
  p.TextPane().Press(kKeyDown);
  p.TextPane().Press(kKeyRight);
  EXPECT_THAT(p.Spoken(), ElementsAre("See link, Next week now", "S"));
}

TEST_F(QuickKeysTest, NLeadsBehindARowOfLinks) {
  const std::string text =
      "a b\nc\nThis is the text that the page is about.\nd\nMore of what it is about.";
  PageTextMaker maker(text);
  maker.Add(Kind::Link, "a")
      .Add(Kind::Link, "b")
      .Add(Kind::Link, "c")
      .Behind("about.")
      .Add(Kind::Link, "d");
  p.Read(MakePage("http://b/", "T", text));
  p.Browser().TextDescribed(maker.Make());
  p.TextPane().SetFocus();
  p.Spoken();
  Press('N');
  Press('N');
  Press('N');
  Press('N', kShiftMask);
  EXPECT_THAT(p.Spoken(),
              ElementsAre("This is the text that the page is about.", "More of what it is about.",
                          "No next text behind links", "This is the text that the page is about."));
}

TEST_F(QuickKeysTest, OtherKeysDoNotWrite) {
  const std::string before = p.TextPane().text;
  Press('Z');
  p.TextPane().Press(188, 0, ',');
  p.TextPane().Press(kKeyBackspace, 0, kKeyBackspace);
  p.TextPane().Press(kKeyDelete);
  EXPECT_EQ(p.TextPane().text, before);
  EXPECT_THAT(p.Spoken(),
              ElementsAre("No quick key", "No quick key", "No quick key", "No quick key"));
}

TEST_F(QuickKeysTest, F4LetsThePaneBeWrittenIn) {
  EXPECT_TRUE(PressInWindow(p, kKeyF4));
  EXPECT_THAT(p.Spoken(), ElementsAre("Quick keys off"));
  const int caret = p.TextPane().start;
  Press('H');
  EXPECT_EQ(p.TextPane().start, caret + 1);
  EXPECT_EQ(text::mid(p.TextPane().text, static_cast<std::size_t>(caret) + 1, 1), "h");
  p.Spoken();
  EXPECT_TRUE(PressInWindow(p, kKeyF4));
  EXPECT_THAT(p.Spoken(), ElementsAre("Quick keys on"));
  p.Address().SetFocus();
  p.Spoken();
  EXPECT_FALSE(PressInWindow(p, kKeyF4)) << "the box's own key there";
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(QuickKeysTest, EnterAndSpaceActOnWhatIsAtTheCaret) {
  Press('K');
  p.Browser().calls.clear();
  p.TextPane().Press(kKeyRight);
  p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
  p.TextPane().Press(' ', 0, ' ');
  EXPECT_THAT(p.Browser().calls, ElementsAre("Use 1", "Use 1"));
  p.Browser().calls.clear();
  Press('E');
  p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 5", "Enter 5"));
  p.Spoken();
  p.Browser().SetFocus();
  EXPECT_THAT(p.Spoken(), Not(Contains("WebBrowser"))) << "the field says itself";
  p.TextPane().SetFocus();
  Press('H', kShiftMask);
  p.Spoken();
  p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
  EXPECT_THAT(p.Spoken(), ElementsAre("No link, button or field here"));
}

TEST_F(QuickKeysTest, WhatIsGoneWhenItIsUsedIsToldAndTheTextTakenAnew) {
  Press('E');
  p.TextPane().Press(kKeyReturn, 0, kKeyReturn);
  p.Spoken();
  p.Browser().ElementGone.Raise();
  EXPECT_THAT(p.Spoken(), ElementsAre("That is no longer in the page"));
  ASSERT_TRUE(p.Browser().describing_text);
  p.Browser().TextDescribed(PageTextMaker("Menu\nOther").Add(Kind::Link, "Menu").Make());
  EXPECT_NE(p.TextPane().text.find("Other"), std::string::npos);
  p.Browser().SetFocus();
  EXPECT_THAT(p.Spoken(), Contains("WebBrowser")) << "nothing else would say where the user is";
}

TEST_F(QuickKeysTest, EscapeInThePageLeadsBackToItsPlace) {
  p.Browser().SetFocus();
  p.Spoken();
  p.Browser().LeftElement.Raise({"document", 5});
  EXPECT_EQ(p.desktop.focus, "Text1");
  p.Browser().TextDescribed(Text());
  EXPECT_EQ(AtCaret(), "Name, Al");
  EXPECT_THAT(p.Spoken(), ElementsAre("Name, edit, Al"));
}

TEST_F(QuickKeysTest, ThePlaceIsKeptWhenThePageIsReadAgain) {
  Press('H');
  Press('H');
  p.Browser().Begin();
  p.Browser().Finish(
      MakePage("http://a/", "T\xC3\xADtle", "Menu\nPrices\nSee Next week now\nDetails\nEnd"));
  p.Reading().Fire();
  p.Browser().TextDescribed(Text());
  EXPECT_EQ(AtCaret(), "Details");
}

TEST_F(QuickKeysTest, GoingBackLeadsToTheLinkThatWasFollowed) {
  Press('K');
  Press('K');
  Read("http://b/");
  EXPECT_NE(AtCaret(), "Next week now") << "a page that is new begins at its title";
  PressInWindow(p, kKeyLeft, kAltMask);
  p.Read(MakePage("http://a/", "T\xC3\xADtle", "Menu\nPrices\nSee Next week now\nDetails\nEnd"));
  const auto text = std::make_shared<PageText>(*Text());
  text->documents = {"loaded anew"};
  p.Browser().TextDescribed(text);
  EXPECT_EQ(AtCaret(), "Next week now");
}

TEST_F(QuickKeysTest, AsLongAsThePlacesAreNotKnownThatIsSaid) {
  p.Read(MakePage("http://b/", "T", "text"));
  p.TextPane().SetFocus();
  p.Spoken();
  Press('H');
  EXPECT_THAT(p.Spoken(), ElementsAre("The page is still being read"));
  p.Browser().TextDescribed(nullptr);
  Press('H');
  EXPECT_THAT(p.Spoken(), ElementsAre("What stands where in this page is not known"));
}

TEST_F(QuickKeysTest, WhoIsQuickerThanThePageIsLedThereOnceItHasCome) {
  p.Read(MakePage("http://b/", "T", "text"));
  p.TextPane().SetFocus();
  Press('H');
  Press('E');
  p.Spoken();
  p.Browser().TextDescribed(Text());
  EXPECT_THAT(p.Spoken(), ElementsAre("Name, edit, Al")) << "the last key counts";
}

TEST_F(QuickKeysTest, WhoHasGoneElsewhereMeanwhileStaysThere) {
  p.Read(MakePage("http://b/", "T", "text"));
  p.TextPane().SetFocus();
  Press('H');
  p.Address().SetFocus();
  p.Spoken();
  p.Browser().TextDescribed(Text());
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST(EstablishedText, LettersAreWrittenAndALineIsItsText) {
  Program p;
  p.StartTalking();
  p.Read(MakePage("http://a/", "Title", "Menu\nPrices"));
  EXPECT_EQ(p.Browser().describing_text, nullptr) << "nobody needs it";
  p.TextPane().SetFocus();
  p.Spoken();
  p.TextPane().Press('H', 0, 'h');
  EXPECT_THAT(p.Spoken(), ElementsAre("h"));
  EXPECT_FALSE(PressInWindow(p, kKeyF4));
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

}  // namespace
}  // namespace corvane::tests
