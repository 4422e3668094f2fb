#include "browser/reading/Spelling.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct SpellingTest : testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("Passwords") = "hidden";
    p.StartTalking();
    p.TextPane().SetFocus();
    Put("The Cat's, ok\nNext", 5);
  }
  void Put(const std::string& text, int caret) {
    Pane().SetText(text);
    Pane().SetSelStart(caret);
    p.Spoken();
  }
  ctlText& Pane() { return p.Inside().ctlWebBrowser1.Inside().controls.ctlText1; }
  std::vector<std::string> Press(int code) {
    p.Spoken();
    KeyEvent key{code, kCtrlMask | kShiftMask};
    p.Inside().form->KeyDown.Raise(key);
    EXPECT_EQ(key.KeyCode, 0);
    return p.Spoken();
  }
  HTMLElementPtr Focus(const std::string& type_name, const std::string& type) {
    auto element = std::make_shared<HTMLElement>();
    element->type_name = type_name;
    element->type = type;
    p.Browser().focused = element;
    p.Browser().SetFocus();
    p.Spoken();
    return element;
  }
};

TEST_F(SpellingTest, TheWordAtTheCaret) {
  EXPECT_THAT(Press('W'), ElementsAre("C, a, t, apostrophe, s, comma"));
}

TEST_F(SpellingTest, AgainByWordsAndThenByLetters) {
  Press('W');
  EXPECT_THAT(Press('W'), ElementsAre("Charlie, Alfa, Tango, apostrophe, Sierra, comma"));
  EXPECT_THAT(Press('W'), ElementsAre("C, a, t, apostrophe, s, comma"));
}

TEST_F(SpellingTest, ByLettersWhenSomethingElseWasSaidBetween) {
  Press('W');
  p.Window(0)->Say("from elsewhere", false);
  Pane().SetSelStart(0);
  EXPECT_THAT(Press('W'), ElementsAre("T, h, e"));
  Pane().SetSelStart(4);
  EXPECT_THAT(Press('W'), ElementsAre("C, a, t, apostrophe, s, comma"));
}

TEST_F(SpellingTest, TheLineWithItsBlanks) {
  Put("a  b\nNext", 0);
  EXPECT_THAT(Press('L'), ElementsAre("a, space, space, b"));
  EXPECT_THAT(Press('L'), ElementsAre("Alfa, space, space, Bravo"));
}

TEST_F(SpellingTest, TheWordThatTheCaretStandsBehind) {
  Put("one two", 3);
  EXPECT_THAT(Press('W'), ElementsAre("o, n, e"));
  Put("one two", 7);
  EXPECT_THAT(Press('W'), ElementsAre("t, w, o"));
}

TEST_F(SpellingTest, BlankWhereThereIsNoWord) {
  Put("one  two", 4);
  EXPECT_THAT(Press('W'), ElementsAre("blank"));
  Put("", 0);
  EXPECT_THAT(Press('W'), ElementsAre("blank"));
  EXPECT_THAT(Press('L'), ElementsAre("blank"));
}

TEST_F(SpellingTest, LettersOfOtherAlphabetsAsTheyAre) {
  Put("caf\u00E9\u00A0\u0436 x", 2);
  EXPECT_THAT(Press('W'), ElementsAre("c, a, f, \u00E9"));
  EXPECT_THAT(Press('W'), ElementsAre("Charlie, Alfa, Foxtrot, \u00E9"));
}

TEST_F(SpellingTest, TheAddressAtItsCaret) {
  p.Address().SetFocus();
  p.Address().text = "http://a.example/x y";
  p.Address().SetSelStart(19);
  EXPECT_THAT(Press('W'), ElementsAre("y"));
}

TEST_F(SpellingTest, TheLineAtTheCaretOfAFieldOfThePage) {
  const auto area = Focus("HTMLTextAreaElement", "textarea");
  area->value = "one\ntwo of it\nthree";
  area->caret.text_after = 10;
  EXPECT_THAT(Press('W'), ElementsAre("o, f"));
  EXPECT_THAT(Press('L'), ElementsAre("t, w, o, space, o, f, space, i, t"));
}

TEST_F(SpellingTest, AHiddenPasswordStaysHidden) {
  Focus("HTMLInputElement", "password")->value = "ab";
  EXPECT_THAT(Press('W'), ElementsAre("asterisk, asterisk"));
}

TEST_F(SpellingTest, TheWordsOfALinkThatHasTheFocus) {
  Focus("HTMLAnchorElement", "")->innerText = "Go on";
  EXPECT_THAT(Press('W'), ElementsAre("G, o, space, o, n"));
}

TEST_F(SpellingTest, TheItemOfTheTreeThatIsSelected) {
  TreeNode& node = p.Tree().Add(nullptr, "Go on");
  p.Tree().SetSelectedItem(&node);
  p.Tree().SetFocus();
  EXPECT_THAT(Press('W'), ElementsAre("G, o, space, o, n"));
}

TEST_F(SpellingTest, SaysSoWhereThereIsNothingToSpell) {
  p.desktop.Get<FakeCommandButton>("cmdToolbar0").SetFocus();
  EXPECT_THAT(Press('W'), ElementsAre("There is nothing to spell here"));
  p.Browser().SetFocus();
  EXPECT_THAT(Press('L'), ElementsAre("There is nothing to spell here"));
}

TEST(SpellingEstablished, TheKeysAreThePages) {
  Program p;
  p.StartTalking();
  KeyEvent key{'L', kCtrlMask | kShiftMask};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, 'L');
}

}  // namespace
}  // namespace corvane::tests
