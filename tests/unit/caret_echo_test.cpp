#include "browser/CaretEcho.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct CaretEchoTest : ::testing::Test {
  Program p;

  void SetUp() override { Start(); }
  void Start() {
    p.StartTalking();
    p.Spoken();
  }
  /// The user comes to a field and has heard its name.
  template <class Field>
  Field& In(Field& field) {
    field.SetFocus();
    p.Spoken();
    return field;
  }
  FakeRichTextBox& InTextPane(const std::string& text, int caret = 0) {
    p.TextPane().SetText(text);
    p.TextPane().SetSelStart(caret);
    return In(p.TextPane());
  }
};

TEST_F(CaretEchoTest, TypedCharactersAreSpokenOneByOne) {
  In(p.Address()).Type("abc");
  p.Address().Press('E', 0, 0xE9);
  EXPECT_THAT(p.Spoken(), ElementsAre("a", "b", "c", "\xC3\xA9"));
}

TEST_F(CaretEchoTest, TheFirstCharacterIsHeardWhereverTheUserComesFrom) {
  In(p.Address()).Type("abcdef");
  In(p.Links());
  In(p.Address()).Type("x");
  EXPECT_EQ(p.Address().text, "x") << "typed over what was there";
  EXPECT_THAT(p.Spoken(), ElementsAre("x"));
  InTextPane("line", 3).Press(kKeyRight);
  In(p.Address()).Type("y");
  EXPECT_EQ(p.Spoken().back(), "y");
}

TEST_F(CaretEchoTest, TheFirstWordBehindSearchIsHeardAlone) {
  In(p.Address()).Type("some address");
  p.desktop.Get<FakeCommandButton>("cmdToolbar5").Click.Raise();
  p.Spoken();
  p.Address().Type("x");
  EXPECT_EQ(p.Address().text, "Search x");
  EXPECT_THAT(p.Spoken(), ElementsAre("x"));
}

TEST_F(CaretEchoTest, WhatIsTypedIntoAChosenAddressIsHeardAlone) {
  In(p.Address()).Type("abc");
  p.Address().Press(kKeyDown);
  p.Spoken();
  p.Address().Type("x");
  EXPECT_THAT(p.Spoken(), ElementsAre("x"));
}

TEST_F(CaretEchoTest, WhatIsTypedBehindAChoiceFromTheOpenListIsHeardAlone) {
  In(p.Address()).Type("abc");
  p.Address().AddItem("http://a/");
  KeyEvent opens{115, 0};
  p.Address().KeyDown.Raise(opens);  // F4; the list gets its release
  p.Address().SetListIndex(0);
  p.Spoken();
  p.Address().Type("x");
  EXPECT_THAT(p.Spoken(), ElementsAre("x"));
}

TEST_F(CaretEchoTest, QuickTypingLosesNoCharacter) {
  FakeComboBox& box = In(p.Address());
  KeyEvent a{'A', 0};
  KeyEvent b{'B', 0};
  box.KeyDown.Raise(a);
  box.SetText("a");
  box.SetSelStart(1);
  box.KeyDown.Raise(b);  // before the other is released
  box.SetText("ab");
  box.SetSelStart(2);
  box.KeyUp.Raise(a);
  box.KeyUp.Raise(b);
  EXPECT_EQ(p.Spoken().front(), "ab");
}

TEST_F(CaretEchoTest, HomeSpeaksEverythingPassedOver) {
  const std::string line(40, 'x');
  In(p.Address()).Type(line);
  p.Spoken();
  p.Address().Press(kKeyHome);
  EXPECT_THAT(p.Spoken(), ElementsAre(line));
}

TEST_F(CaretEchoTest, AnotherLineIsSpokenWholeThenSingleCharacters) {
  InTextPane("first line\nsecond line").Press(kKeyDown);
  p.TextPane().Press(kKeyRight);
  p.TextPane().Press(kKeyLeft);
  EXPECT_THAT(p.Spoken(), ElementsAre("second line", "s", "s"));
}

TEST_F(CaretEchoTest, TabSpeaksNothing) {
  InTextPane("text", 3).Press(kKeyTab);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(CaretEchoTest, KeysThatChooseAnEntryLetItSayItselfAlone) {
  In(p.Address()).Type("abc");
  p.Spoken();
  p.Address().Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), ElementsAre("corvane://home/cv/"));
  p.Links().list = {"3 Links in A", "one", "two", "three"};
  p.Links().SetListIndex(1);
  In(p.Links()).Press(kKeyEnd);
  p.Spoken();
  p.Links().Press('T', 0, 't');
  p.Links().Press(kKeyUp);
  EXPECT_THAT(p.Spoken(), ElementsAre("two", "one"));
}

TEST_F(CaretEchoTest, SameLineNumberAndColumnInAnotherFieldSpeaksNothing) {
  InTextPane("text", 1).Press(kKeyRight);
  In(p.Address()).Type("ab");
  p.Spoken();
  p.Address().Press(kKeyF1);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(CaretEchoTest, LinksListIsALineOfItsOwn) {
  p.Links().list = {"A link"};
  p.Links().SetListIndex(0);
  In(p.Links()).Press(kKeyRight);
  EXPECT_THAT(p.Spoken(), ElementsAre("A"));
  InTextPane("first\nsecond\nthird", 6).Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), ElementsAre("third"));
}

TEST_F(CaretEchoTest, KeyThatDoesNotMoveTheCaretSpeaksNothing) {
  In(p.Address()).Type("abc");
  p.Spoken();
  for (const int key : {kKeyShift, kKeyControl, kKeyF1}) p.Address().Press(key);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(CaretEchoTest, WhatACommandSaysIsNotCutOffByItsKeysRelease) {
  p.Read(MakePage("http://a/", "Title", "text"));
  In(p.TextPane()).Press('D', kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("Title added to Favorites"));
}

TEST_F(CaretEchoTest, DeletedCharactersAndEmptyLinesKeepTheEstablishedWay) {
  InTextPane("a\n\nb\\").Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), ElementsAre("")) << "an empty line";
  p.TextPane().Press(kKeyDown);
  p.TextPane().Press(kKeyEnd);
  p.TextPane().Press(kKeyBackspace);
  EXPECT_THAT(p.Spoken(), ElementsAre("b/", "b/", ""));
}

struct TodaysCaretEcho : CaretEchoTest {
  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("QuickKeys") = "False";  // the pane is written in
    Start();
  }
};

TEST_F(TodaysCaretEcho, AnEmptyLineIsBlank) {
  InTextPane("a\n\nb\n \t\nc").Press(kKeyDown);
  for (int i = 0; i < 3; ++i) p.TextPane().Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), ElementsAre("blank", "b", "blank", "c"));
}

TEST_F(TodaysCaretEcho, WhereAKeyLeadsNowhereWhatIsThereIsHeardAgain) {
  FakeRichTextBox& pane = InTextPane("ab cd\nlast");
  pane.Press(kKeyUp);
  pane.Press(kKeyHome, kCtrlMask);
  pane.Press(kKeyHome);
  pane.Press(kKeyLeft);
  EXPECT_THAT(p.Spoken(), ElementsAre("ab cd", "ab cd", "a", "a"));
  pane.SetSelStart(static_cast<int>(pane.text.size()));
  p.Spoken();
  pane.Press(kKeyDown);
  p.Spoken();
  pane.Press(kKeyDown);
  pane.Press(kKeyEnd, kCtrlMask);
  pane.Press(kKeyEnd);
  EXPECT_THAT(p.Spoken(), ElementsAre("last", "last", "blank"));
}

TEST_F(TodaysCaretEcho, ControlMayBeReleasedBeforeTheKeyThatLeadsNowhere) {
  FakeRichTextBox& pane = InTextPane("ab cd\nlast");
  KeyEvent down{kKeyHome, kCtrlMask};
  pane.KeyDown.Raise(down);
  for (const int code : {static_cast<int>(kKeyControl), static_cast<int>(kKeyHome)}) {
    KeyEvent up{code, 0};
    pane.KeyUp.Raise(up);
  }
  EXPECT_THAT(p.Spoken(), ElementsAre("ab cd"));
}

TEST_F(TodaysCaretEcho, WhatSilencesOrSelectsRepeatsNothing) {
  FakeRichTextBox& pane = InTextPane("ab cd\nlast");
  pane.Press(kKeyControl);
  pane.Press(kKeyHome, kShiftMask);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(TodaysCaretEcho, WhatIsDeletedInTheTextPaneIsSaid) {
  InTextPane("first\nab cd\\\nlast", 8);
  for (int i = 0; i < 3; ++i) p.TextPane().Press(kKeyBackspace);
  EXPECT_EQ(p.TextPane().text, "first cd\\\nlast");
  EXPECT_THAT(p.Spoken(), ElementsAre("b", "a", "line break"));
  for (int i = 0; i < 5; ++i) p.TextPane().Press(kKeyDelete);
  EXPECT_THAT(p.Spoken(), ElementsAre("space", "c", "d", "backslash", "line break"));
  p.TextPane().SetSelLength(3);
  p.TextPane().Press(kKeyDelete);
  EXPECT_THAT(p.Spoken(), ElementsAre("las"));
}

TEST_F(TodaysCaretEcho, WhatIsDeletedInTheAddressBoxIsSaid) {
  In(p.Address()).Type("a\\b");
  EXPECT_THAT(p.Spoken(), ElementsAre("a", "backslash", "b"));
  p.Address().Press(kKeyBackspace);
  p.Address().Press(kKeyHome);
  p.Spoken();
  p.Address().Press(kKeyDelete);
  EXPECT_THAT(p.Spoken(), ElementsAre("a"));
  In(p.Address()).Press(kKeyDelete);
  EXPECT_THAT(p.Spoken(), ElementsAre("backslash")) << "all of it was selected";
}

TEST_F(TodaysCaretEcho, WhereNothingIsDeletedNothingIsSaid) {
  InTextPane("ab").Press(kKeyBackspace);
  p.TextPane().Press(kKeyEnd);
  p.Spoken();
  p.TextPane().Press(kKeyDelete);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(TodaysCaretEcho, ABackslashUnderTheCaretIsNamed) {
  InTextPane("a\\b").Press(kKeyRight);
  p.TextPane().Press(kKeyRight);
  p.TextPane().Press(kKeyEnd);
  p.TextPane().Press(kKeyHome);
  EXPECT_THAT(p.Spoken(), ElementsAre("a", "backslash", "b", "a/b")) << "not within more";
}

TEST_F(TodaysCaretEcho, APlaceInTheTextSurvivesWhatIsAnnounced) {
  p.Read(MakePage("http://a/", "Title", "one\ntwo\nthree"));
  In(p.TextPane()).Press(kKeyDown);
  p.TextPane().Press(kKeyDown);
  p.TextPane().Press(kKeyRight);
  p.Spoken();
  const int caret = p.TextPane().start;
  p.Browser().Announcement.Raise("Download finished: a file");
  p.Browser().DownloadBegin.Raise();
  EXPECT_THAT(p.TextPane().text, ::testing::EndsWith("Download finished: a file\nWorking...\n"));
  EXPECT_EQ(p.TextPane().start, caret);
  p.Spoken();
  p.TextPane().Press(kKeyRight);
  p.TextPane().Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), ElementsAre("w", "three")) << "the last line has kept its own words";
  p.Read(MakePage("http://b/", "New", "text"));
  EXPECT_EQ(p.TextPane().start, 0) << "a new page is read from its start";
}

TEST_F(CaretEchoTest, AnnouncementsLeaveTheCaretAtTheEndInTheEstablishedWay) {
  p.Read(MakePage("http://a/", "Title", "one"));
  p.Browser().Announcement.Raise("Download finished: a file");
  EXPECT_EQ(p.TextPane().start, p.TextPane().TextLength());
}

TEST_F(CaretEchoTest, WindowThatIsNoFieldReadsAsAnEmptyFirstLine) {
  PageInPane page(p.Inside().ctlWebBrowser1.Inside());
  CaretEcho echo(p.Inside().ctlWebBrowser1.Inside(), page);
  int column = 3;
  echo.parse_string("abcdef", 0, column);
  p.Spoken();
  echo.TextBoxPress(987654);
  EXPECT_THAT(p.Spoken(), ElementsAre(""));  // from column 3 back to 0 of an empty line
  EXPECT_THAT(p.desktop.boxes.Texts(), IsEmpty());
}

struct ParseString : ::testing::Test {
  FakeDesktop desktop;
  PaneContext pane{desktop};
  PageInPane page{pane};
  CaretEcho echo{pane, page};
  struct Sink : ISpeechNotify {
    std::vector<std::string> said;
    void ISpeechNotify_SayThrough(const std::string& Text, Spoken) override { Say(Text, false); }
    void ISpeechNotify_SayBehind(const std::string& Text, Spoken) override { Say(Text, false); }
    void ISpeechNotify_SayAs(const std::string&, Whose, Sign) override {}
    void ISpeechNotify_Say(const std::string& Text, const bool&) override { said.push_back(Text); }
  } sink;

  void SetUp() override { pane.announcer.SetSpeechNotify(&sink); }
  void Parse(const std::string& text, int line, int column) {
    echo.parse_string(text, line, column);
  }
};

TEST_F(ParseString, MinusOneSpeaksTheRememberedLine) {
  Parse("remembered", 3, 2);
  sink.said.clear();
  Parse("ignored", 9, -1);
  Parse("remembered", 3, 2);  // the state is as it was
  EXPECT_THAT(sink.said, ElementsAre("remembered"));
}

TEST_F(ParseString, MinusTwoSpeaksTheWordWithItsBlank) {
  Parse("one two three", 1, 5);
  Parse("", 0, -2);
  Parse("one two three", 1, 10);
  Parse("", 0, -2);
  EXPECT_EQ(sink.said[1], "two ");
  EXPECT_EQ(sink.said.back(), "three");
}

TEST_F(ParseString, MinusThreeSpeaksNothingButRefusesWhatIsNoDigit) {
  Parse("7x", 1, 1);
  sink.said.clear();
  Parse("", 0, -3);
  EXPECT_THAT(desktop.boxes.Texts(), IsEmpty());
  Parse("7x", 1, 2);
  sink.said.clear();
  Parse("", 0, -3);
  EXPECT_THAT(sink.said, IsEmpty());
  EXPECT_THAT(desktop.boxes.Texts(), ElementsAre("parsestring Error: Type mismatch"));
}

TEST_F(ParseString, AnotherLineIsSpokenWholeAndItsColumnKept) {
  Parse("first", 1, 4);
  Parse("second", 2, 3);
  Parse("second", 2, 5);  // from column 3 on
  Parse("second", 2, 1);
  EXPECT_THAT(sink.said, ElementsAre("first", "second", "on", "econ"));
}

TEST_F(ParseString, UnmovedCaretStillRemembersTheNewText) {
  Parse("old", 1, 1);
  Parse("new", 1, 1);
  sink.said.clear();
  Parse("", 0, -1);
  EXPECT_THAT(sink.said, ElementsAre("new"));
}

TEST_F(ParseString, NothingIsUrgent) {
  struct Urgency : ISpeechNotify {
    std::vector<bool> flags;
    void ISpeechNotify_SayThrough(const std::string& Text, Spoken) override { Say(Text, false); }
    void ISpeechNotify_SayBehind(const std::string& Text, Spoken) override { Say(Text, false); }
    void ISpeechNotify_SayAs(const std::string&, Whose, Sign) override {}
    void ISpeechNotify_Say(const std::string&, const bool& urgent) override {
      flags.push_back(urgent);
    }
  } urgency;
  pane.announcer.SetSpeechNotify(&urgency);
  Parse("line", 1, 2);
  Parse("line", 1, 3);
  Parse("line", 1, -1);
  EXPECT_THAT(urgency.flags, ElementsAre(false, false, false));
}

TEST_F(ParseString, OtherNegativeColumnsBecomeZero) {
  int column = -7;
  echo.parse_string("line", 1, column);
  EXPECT_EQ(column, 0);
}

}  // namespace
}  // namespace corvane::tests
