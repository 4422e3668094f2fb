#include "browser/CaretEcho.h"

#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

struct CaretEchoTest : ::testing::Test {
  Program p;

  void SetUp() override {
    p.StartTalking();
    p.Spoken();
  }
  void TypeIntoAddress(const std::string& text) {
    p.Address().text = text;
    p.Address().caret = static_cast<int>(text::length(text));
    p.Address().Press('A');
  }
  void CaretInTextPaneTo(int position, int key = kKeyRight) {
    p.TextPane().start = position;
    p.TextPane().Press(key);
  }
};

TEST_F(CaretEchoTest, TypedCharactersAreSpokenOneByOne) {
  TypeIntoAddress("a");
  TypeIntoAddress("ab");
  TypeIntoAddress("ab\xC3\xA9");
  EXPECT_THAT(p.Spoken(), ElementsAre("a", "b", "\xC3\xA9"));
}

TEST_F(CaretEchoTest, HomeSpeaksEverythingPassedOver) {
  const std::string line(40, 'x');
  TypeIntoAddress(line);
  p.Spoken();
  p.Address().caret = 0;
  p.Address().Press(kKeyHome);
  EXPECT_THAT(p.Spoken(), ElementsAre(line));
}

TEST_F(CaretEchoTest, AnotherLineIsSpokenWholeThenSingleCharacters) {
  p.TextPane().SetText("first line\nsecond line");
  CaretInTextPaneTo(0);
  CaretInTextPaneTo(11, kKeyDown);
  CaretInTextPaneTo(12);
  CaretInTextPaneTo(11, kKeyLeft);
  EXPECT_THAT(p.Spoken(), ElementsAre("second line", "s", "s"));
}

TEST_F(CaretEchoTest, TabAndTheListKeysSpeakNothing) {
  p.TextPane().SetText("text");
  CaretInTextPaneTo(3, kKeyTab);
  p.Address().text = "abc";
  p.Address().caret = 3;
  p.Address().Press(kKeyUp);
  p.Address().Press(kKeyDown);
  p.Links().text = "xyz";
  p.Links().caret = 3;
  p.Links().Press(kKeyUp);
  p.Links().Press(kKeyDown);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(CaretEchoTest, SameLineNumberAndColumnInAnotherFieldSpeaksNothing) {
  p.TextPane().SetText("text");
  CaretInTextPaneTo(2);
  p.Spoken();
  p.Address().text = "address";
  p.Address().caret = 2;
  p.Address().Press(kKeyControl);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(CaretEchoTest, LinksListIsALineOfItsOwn) {
  p.Links().text = "A link";
  p.Links().Press(kKeyHome);
  EXPECT_THAT(p.Spoken(), ElementsAre("A link"));
}

TEST_F(CaretEchoTest, KeyThatDoesNotMoveTheCaretSpeaksNothing) {
  TypeIntoAddress("abc");
  p.Spoken();
  p.Address().Press(kKeyShift);
  p.Address().Press(kKeyControl);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(CaretEchoTest, WindowThatIsNoFieldReadsAsAnEmptyFirstLine) {
  CaretEcho echo(p.Inside().ctlWebBrowser1.Inside());
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
  CaretEcho echo{pane};
  struct Sink : ISpeechNotify {
    std::vector<std::string> said;
    void ISpeechNotify_SayThrough(const std::string& Text, Spoken) override { Say(Text, false); }
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
