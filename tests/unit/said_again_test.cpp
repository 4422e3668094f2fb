#include <string>

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct SaidAgain : testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.StartTalking();
    p.Spoken();
  }
  /// True when the key was used up.
  bool Press(int code) {
    KeyEvent key{code, kCtrlMask | kShiftMask};
    p.Inside().form->KeyDown.Raise(key);
    return key.KeyCode == 0;
  }
  std::vector<std::string> Again() {
    p.Spoken();
    EXPECT_TRUE(Press('R'));
    return p.Spoken();
  }
  void Say(const std::string& text) { p.Window(0)->Say(text, false); }
};

TEST_F(SaidAgain, WhatWasSaidLastAndThenWhatCameBefore) {
  Say("one");
  Say("two");
  Say("three");
  EXPECT_THAT(Again(), ElementsAre("three"));
  EXPECT_THAT(Again(), ElementsAre("two"));
  EXPECT_THAT(Again(), ElementsAre("one"));
}

TEST_F(SaidAgain, BeginsAnewWhenSomethingElseHasBeenSaid) {
  Say("one");
  Say("two");
  Again();
  Again();
  Say("three");
  EXPECT_THAT(Again(), ElementsAre("three"));
  EXPECT_THAT(Again(), ElementsAre("two"));
}

TEST_F(SaidAgain, GoesFiftyMessagesBack) {
  for (int i = 1; i <= 60; ++i) Say(std::to_string(i));
  for (int i = 60; i > 10; --i) EXPECT_THAT(Again(), ElementsAre(std::to_string(i)));
  EXPECT_THAT(Again(), ElementsAre("Nothing was said before that"));
  EXPECT_THAT(Again(), ElementsAre("Nothing was said before that"));
}

TEST_F(SaidAgain, TheKeysThatAreEchoedAreNotAmongIt) {
  p.Service()->KeyBoardEcho(true);
  Say("one");
  p.desktop.PressKey(kKeyControl);
  p.desktop.PressKey('R');
  EXPECT_THAT(Again(), ElementsAre("one"));
  p.desktop.PressKey('R');
  EXPECT_THAT(Again(), testing::Not(testing::Contains("R")));
}

TEST_F(SaidAgain, SentencesThatAreReadOnAreAmongIt) {
  p.Inside().ctlWebBrowser1.Inside().controls.ctlText1.SetText("First line.\nSecond.");
  p.Inside().ctlWebBrowser1.ReadOn();
  p.desktop.speech.agent->CompleteLast();
  EXPECT_THAT(Again(), ElementsAre("Second."));
  EXPECT_THAT(Again(), ElementsAre("First line."));
}

TEST_F(SaidAgain, WhatWasSaidLastIsCopied) {
  Say("one");
  Say("two");
  p.Spoken();
  EXPECT_TRUE(Press('C'));
  EXPECT_EQ(p.desktop.clipboard.text, "two");
  EXPECT_THAT(p.Spoken(), ElementsAre("Copied"));
  EXPECT_THAT(Again(), ElementsAre("two")) << "not that it was copied";
}

TEST_F(SaidAgain, WhatWasSaidAgainIsCopied) {
  Say("one");
  Say("two");
  Again();
  Again();
  Press('C');
  EXPECT_EQ(p.desktop.clipboard.text, "one");
}

TEST_F(SaidAgain, TheKeysAreThePagesWhileSpeechIsOff) {
  p.Inside().menu.mnuSpeech(0).Click.Raise();
  EXPECT_FALSE(Press('R'));
  EXPECT_FALSE(Press('C'));
}

TEST(SaidAgainEstablished, TheKeysAreThePages) {
  Program p;
  p.StartTalking();
  KeyEvent key{'R', kCtrlMask | kShiftMask};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, 'R');
}

}  // namespace
}  // namespace corvane::tests
