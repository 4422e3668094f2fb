#include "browser/ReadOn.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct ReadingOn : testing::Test {
  Program p;
  void SetUp() override {
    p.StartTalking();
    Pane().SetText("Héllo world.\n\n  Second paragraph.\nLast");
    p.Spoken();
  }
  ctlText& Pane() { return p.Inside().ctlWebBrowser1.Inside().controls.ctlText1; }
  void Press(int code) {
    KeyEvent key{code, 0};
    p.Inside().form->KeyDown.Raise(key);
  }
  void Finish() { p.desktop.speech.agent->CompleteLast(); }
};

TEST_F(ReadingOn, GoesFromTheCaretToTheEndAndTakesTheCaretAlong) {
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("Héllo world."));
  EXPECT_EQ(Pane().SelStart(), 0);
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("Second paragraph."));
  EXPECT_EQ(Pane().SelStart(), 16);
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("Last"));
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("End of text"));
  Finish();
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(ReadingOn, BeginsInTheMiddleOfALine) {
  Pane().SetSelStart(6);
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("world."));
}

TEST_F(ReadingOn, SaysSoAtTheEnd) {
  Pane().SetSelStart(Pane().TextLength());
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("End of text"));
}

TEST_F(ReadingOn, EndsWhenSomethingElseIsSaid) {
  Press(kKeyF7);
  p.Window(0)->Say("Something else", false);
  p.Spoken();
  Finish();
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(Pane().SelStart(), 0) << "the caret stays before what was cut off";
}

TEST_F(ReadingOn, GoesOnAtTheWordsThatWereCutOff) {
  Press(kKeyF7);
  Finish();
  p.Spoken();
  p.desktop.speech.agent->CutOff();
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "a cut is no end";
  EXPECT_EQ(Pane().SelStart(), 16);
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("Second paragraph."));
}

TEST_F(ReadingOn, GoesOnAtTheSentenceThatWasCutOff) {
  Pane().SetText("The first goes on. It has two more. This one ends it.");
  Press(kKeyF7);
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("The first goes on.", "It has two more."));
  p.desktop.speech.agent->CutOff();
  EXPECT_EQ(Pane().SelStart(), 19);
  Press(kKeyF7);
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("It has two more.", "This one ends it."));
}

TEST_F(ReadingOn, LeavesTheWordToWhatIsSaidBehindIt) {
  p.Window(0)->Say("Urgent", true);  // keeps the next two from cutting anything off
  Press(kKeyF7);
  p.Window(0)->Say("Where the user has gone", false);
  p.Spoken();
  const int piece = p.desktop.speech.last_id - 1;
  p.desktop.speech.agent->RequestComplete.Raise(AgentRequest{piece}, RequestEnd::Done);
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(Pane().SelStart(), 0);
}

TEST_F(ReadingOn, ControlSilencesItAndItsReleaseSaysNothing) {
  Press(kKeyF7);
  Finish();
  p.Spoken();
  p.desktop.PressKey(kKeyControl);
  KeyEvent released{kKeyControl, 0};
  p.TextPane().KeyUp.Raise(released);
  Finish();
  EXPECT_THAT(p.Spoken(), IsEmpty());
  EXPECT_EQ(Pane().SelStart(), 16);
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("Second paragraph.")) << "goes on where it was silenced";
}

TEST_F(ReadingOn, IsNotCutOffByTheReleaseOfItsKey) {
  p.Address().text = "http://example.org/";
  Press(kKeyF7);
  p.Spoken();
  for (Control* field : {static_cast<Control*>(&p.Address()), static_cast<Control*>(&p.TextPane()),
                         static_cast<Control*>(&p.Links())}) {
    KeyEvent released{kKeyF7, 0};
    field->KeyUp.Raise(released);
  }
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(ReadingOn, AgainBeginsAnewAtTheCaret) {
  Press(kKeyF7);
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("Héllo world.", "Héllo world."));
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("Second paragraph."));
}

TEST_F(ReadingOn, EndsWhenAnotherPageIsInThePane) {
  Press(kKeyF7);
  Pane().SetText("Another page");
  p.Spoken();
  Finish();
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(ReadingOn, IsSilentWithSpeechSwitchedOff) {
  p.Inside().commands.mnuSpeech_Click(kSpeechEnable);
  p.desktop.speech.calls.clear();
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

struct SteppingInReading : ReadingOn {
  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    ReadingOn::SetUp();
    Pane().SetText("One begins. Then two. Three ends it.\n\nFour is here. Five too.\nSix");
    p.Spoken();
  }
  std::vector<std::string> Heard(int code) {
    p.Spoken();
    Press(code);
    return p.Spoken();
  }
  std::string Caret() {
    return Pane().Text().substr(static_cast<std::size_t>(Pane().SelStart()), 4);
  }
};

TEST_F(SteppingInReading, RightAndLeftGoASentenceOnAndBack) {
  Press(kKeyF7);
  EXPECT_THAT(Heard(kKeyRight), ElementsAre("Then two."));
  EXPECT_THAT(Heard(kKeyRight), ElementsAre("Three ends it."));
  EXPECT_THAT(Heard(kKeyRight), ElementsAre("Four is here."));
  EXPECT_THAT(Heard(kKeyLeft), ElementsAre("Three ends it."));
  EXPECT_THAT(Heard(kKeyLeft), ElementsAre("Then two."));
  EXPECT_EQ(Caret(), "Then");
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("Three ends it.")) << "and goes on from there";
}

TEST_F(SteppingInReading, DownAndUpGoAParagraphOnAndBack) {
  Press(kKeyF7);
  EXPECT_THAT(Heard(kKeyDown), ElementsAre("Four is here."));
  EXPECT_THAT(Heard(kKeyRight), ElementsAre("Five too."));
  EXPECT_THAT(Heard(kKeyDown), ElementsAre("Six"));
  EXPECT_THAT(Heard(kKeyUp), ElementsAre("Four is here."));
  EXPECT_THAT(Heard(kKeyUp), ElementsAre("One begins."));
  EXPECT_EQ(Caret(), "One ");
}

TEST_F(SteppingInReading, StaysAtTheBeginning) {
  Press(kKeyF7);
  EXPECT_THAT(Heard(kKeyLeft), ElementsAre("One begins."));
  EXPECT_THAT(Heard(kKeyUp), ElementsAre("One begins."));
}

TEST_F(SteppingInReading, BackLeadsToTheBeginningOfASentenceThatWasBegunInTheMiddle) {
  Pane().SetSelStart(17);
  EXPECT_THAT(Heard(kKeyF7), ElementsAre("two."));
  EXPECT_THAT(Heard(kKeyLeft), ElementsAre("Then two."));
}

TEST_F(SteppingInReading, EndsBehindTheLastSentence) {
  Pane().SetSelStart(Pane().TextLength() - 3);
  Press(kKeyF7);
  EXPECT_THAT(Heard(kKeyRight), ElementsAre("End of text"));
  EXPECT_THAT(Heard(kKeyLeft), IsEmpty()) << "nothing is being read any more";
}

TEST_F(SteppingInReading, LeavesTheArrowsAloneWhileNothingIsRead) {
  KeyEvent key{kKeyLeft, 0};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, kKeyLeft);
  Press(kKeyF7);
  p.desktop.PressKey(kKeyControl);
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, kKeyLeft) << "Control has paused it";
}

TEST_F(SteppingInReading, GoesOnWhileKeysAreEchoed) {
  p.Service()->KeyBoardEcho(true);
  p.desktop.windows.active = p.Inside().form->hwnd();
  Press(kKeyF7);
  p.desktop.PressKey(kKeyRight);
  EXPECT_THAT(Heard(kKeyRight), ElementsAre("Then two."));
  p.desktop.PressKey(kKeyControl);
  p.Spoken();
  p.desktop.PressKey(kKeyRight);
  EXPECT_THAT(p.Spoken(), ElementsAre("Right (urgent)")) << "nothing is read any more";
}

struct ReadingAPage : testing::Test {
  Program p;
  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.StartTalking();
    p.Read(MakePage("http://p/", "Shop", "Menu\nThe first. The second.\nLast"));
    p.Browser().TextDescribed(PageTextMaker("Menu\nThe first. The second.\nLast")
                                  .Add(PageSpan::Kind::Link, "Menu")
                                  .Make());
    p.TextPane().SetFocus();
    PaneContext& pane = p.Inside().ctlWebBrowser1.Inside();
    pane.controls.ctlText1.SetSelStart(pane.state.page_text);
    p.Spoken();
  }
  void Press(int code) {
    KeyEvent key{code, 0};
    p.Inside().form->KeyDown.Raise(key);
  }
  void Finish() { p.desktop.speech.agent->CompleteLast(); }
};

TEST_F(ReadingAPage, ThePageFollowsTheWords) {
  p.Browser().calls.clear();
  Press(kKeyF7);
  Finish();
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show words 1 Menu", "Show words 1 The first."));
}

TEST_F(ReadingAPage, EndsWithThePageWhateverIsAnnouncedBehindIt) {
  p.Inside().ctlWebBrowser1.Inside().controls.ctlText1.AddText("An announcement\n", true);
  Press(kKeyF7);
  for (int i = 0; i < 4; ++i) Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("Menu", "The first.", "The second.", "Last", "End of text"));
}

TEST_F(ReadingAPage, GoesOnWhereItWasWhenTheTextIsTakenAnew) {
  Press(kKeyF7);
  Finish();
  p.Browser().ElementGone.Raise();
  p.Spoken();
  Press(kKeyF7);
  p.Browser().TextDescribed(PageTextMaker("New\nMenu\nThe first. The second.\nLast")
                                .Add(PageSpan::Kind::Link, "Menu")
                                .Make());
  Finish();
  EXPECT_THAT(p.Spoken(), ElementsAre("The first.", "The second."));
}

TEST_F(ReadingAPage, GoesOnAtWhatHasBeenFoundInThePage) {
  p.Browser().Found.Raise();
  PageTextMaker page("Menu\nThe first. The second.\nLast");
  page.Page().selected = 16;
  p.Browser().TextDescribed(page.Make());
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "it has been said";
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("The second."));
}

TEST_F(ReadingAPage, StaysWhereItIsWhenNothingIsSelectedOfWhatWasFound) {
  p.Browser().Found.Raise();
  p.Browser().TextDescribed(PageTextMaker("Menu\nThe first. The second.\nLast").Make());
  Press(kKeyF7);
  EXPECT_THAT(p.Spoken(), ElementsAre("Menu"));
}

TEST_F(ReadingAPage, EndsWhenAnotherPageComes) {
  Press(kKeyF7);
  p.Read(MakePage("http://q/", "Other", ""));
  p.Spoken();
  Press(kKeyRight);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST(ReadingPieces, AreLinesWithoutSentences) {
  EXPECT_EQ(PieceLength("One two\nthree", 0), 7U);
  EXPECT_EQ(PieceLength("One two\nthree", 8), 5U);
  EXPECT_EQ(PieceLength("", 0), 0U);
}

// The sentences that a line is read as.
std::vector<std::string> Pieces(const std::string& line) {
  std::vector<std::string> pieces;
  for (std::size_t at = 0; at < line.size();) {
    const std::size_t length = PieceLength(line, at);
    pieces.push_back(line.substr(at, length));
    at = std::min(line.find_first_not_of(' ', at + length), line.size());
  }
  return pieces;
}

TEST(ReadingPieces, AreSentences) {
  EXPECT_THAT(
      Pieces("It rains. Who knows why? \"Nobody!\" (So they say.) Élan is all."),
      ElementsAre("It rains.", "Who knows why?", "\"Nobody!\"", "(So they say.)", "Élan is all."));
}

TEST(ReadingPieces, AreNotCutBehindAStopThatOnlyShortens) {
  for (const char* line : {"Dr. Smith came", "See No. 5 there", "Prof. Jones, p. X",
                           "Cats, e.g. Siamese ones", "The U.S. Senate met", "Yahoo! is a name",
                           "J. R. Hartley wrote it", "Version 2. 3 came later"}) {
    EXPECT_THAT(Pieces(line), ElementsAre(line));
  }
}

TEST(ReadingPieces, OfLongSentencesEndWithAWord) {
  const std::string word = std::string(150, 'x') + " ";
  EXPECT_EQ(PieceLength(word + word + word, 0), 301U);
}

TEST(ReadingPieces, OfOneEndlessWordNeverCutACharacter) {
  std::string word;
  for (int i = 0; i < 500; ++i) word += "é";
  EXPECT_EQ(PieceLength(word, 0), 800U);
}

}  // namespace
}  // namespace corvane::tests
