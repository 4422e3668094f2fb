#include "browser/reading/ElementLists.h"

#include "tests/unit/page_text_maker.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

using Kind = PageSpan::Kind;

constexpr const char* kText = "Menu\nPrices\nFruit\nNext week\nDetails\nName, Al\nA cat\nEnd";

struct ElementListsTest : ::testing::Test {
  Program p;

  void SetUp() override {
    p.desktop.settings.Main("Manner") = "1";
    p.desktop.settings.Pane("Focus") = "5";
    p.StartTalking();
    Read("http://a/");
  }
  void Read(const std::string& address) {
    p.Read(MakePage(address, "T", kText));
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
        .Add(Kind::Heading, "Prices", 1)
        .Add(Kind::Heading, "Fruit", 3)
        .Add(Kind::Link, "Next week")
        .Add(Kind::Heading, "Details", 2)
        .Add(Kind::Edit, "Name, Al", 0, 0, edit)
        .Add(Kind::Picture, "A cat")
        .Make();
  }
  /// True when the window has used the key.
  bool Open() {
    KeyEvent key{'E', kCtrlMask | kShiftMask};
    p.Inside().form->KeyDown.Raise(key);
    return key.KeyCode == 0;
  }
  bool IsOpen() const { return p.desktop.Living("frmElements") != 0; }
  FakeTreeView& List() { return p.desktop.Get<FakeTreeView>("trvElements"); }
  FakeTreeView& Kinds() { return p.desktop.Get<FakeTreeView>("trvKinds"); }
  void Choose(std::size_t kind) { Kinds().Click(*Kinds().nodes.at(kind)); }
  void PressKey(int code, int shift = 0) {
    KeyEvent key{code, shift};
    p.desktop.Get<FakeForm>("frmElements").KeyDown.Raise(key);
    if (key.KeyCode != 0) List().Press(code, shift, code);
  }
  void Type(const std::string& text) {
    for (const char c : text) List().Press(c, 0, static_cast<unsigned char>(c));
  }
  void Wait() {
    for (FakeTimer* timer : std::vector(p.desktop.timers)) {
      if (timer->interval == 700 && timer->enabled) timer->Fire();
    }
  }
  std::vector<std::string> Entries() {
    std::vector<std::string> entries;
    for (const auto* node : List().all) entries.push_back(node->text);
    return entries;
  }
  std::string AtCaret() {
    const std::string rest =
        text::mid(p.TextPane().text, static_cast<std::size_t>(p.TextPane().start) + 1);
    return rest.substr(0, rest.find('\n'));
  }
};

TEST_F(ElementListsTest, HeadingsComeFirstAsATreeOfTheirLevels) {
  EXPECT_TRUE(Open());
  EXPECT_EQ(p.desktop.focus, "trvElements");
  ASSERT_EQ(List().nodes.size(), 1U);
  EXPECT_THAT(List().nodes[0]->Labels(), ElementsAre("Fruit, level 3", "Details, level 2"));
  EXPECT_TRUE(List().nodes[0]->expanded);
  EXPECT_THAT(p.Spoken(), ElementsAre("Headings, Prices, level 1, 1 of 3"));
}

TEST_F(ElementListsTest, TheListBeginsAtWhatIsNearestTheCaret) {
  p.TextPane().Press('E', 0, 'e');
  p.Spoken();
  Open();
  EXPECT_THAT(p.Spoken(), ElementsAre("Headings, Details, level 2, 3 of 3"));
  Choose(1);
  EXPECT_EQ(List().SelectedItem()->Text(), "Next week");
}

TEST_F(ElementListsTest, EachKindHasItsList) {
  Open();
  p.Spoken();
  const std::vector<std::vector<std::string>> lists = {
      {"Prices, level 1", "Fruit, level 3", "Details, level 2"},
      {"Menu", "Next week"},
      {"Name, edit, Al"},
      {},
      {},
      {"A cat"}};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    Choose(i);
    EXPECT_EQ(Entries(), lists[i]) << i;
  }
  EXPECT_THAT(p.Spoken(), ElementsAre("Headings, 3", "Links, 2", "Fields and buttons, 1",
                                      "Landmarks, 0", "Tables, 0", "Pictures, 1"));
  Choose(4);
  p.Spoken();
  List().SetFocus();
  EXPECT_THAT(p.Spoken(), ElementsAre("Tables, no tables"));
  PressKey(kKeyReturn);
  EXPECT_THAT(p.Spoken(), ElementsAre("no tables"));
  EXPECT_TRUE(IsOpen());
}

TEST_F(ElementListsTest, AnEntryIsSaidWithItsPlace) {
  Open();
  p.Spoken();
  List().Click(*List().all[1]);
  EXPECT_THAT(p.Spoken(), ElementsAre("Fruit, level 3, 2 of 3"));
  PressKey(kKeyF1);
  EXPECT_THAT(p.Spoken(), ElementsAre("Headings, Fruit, level 3, 2 of 3"));
}

TEST_F(ElementListsTest, WhatIsTypedNarrowsTheList) {
  Open();
  p.Spoken();
  Type("i");
  EXPECT_THAT(Entries(), ElementsAre("Prices, level 1", "Fruit, level 3", "Details, level 2"));
  Type("L");
  EXPECT_THAT(Entries(), ElementsAre("Details, level 2"));
  EXPECT_THAT(p.Spoken(), ElementsAre("Prices, level 1", "Details, level 2"));
  Wait();
  EXPECT_THAT(p.Spoken(), ElementsAre("1 remains"));
  Wait();
  EXPECT_THAT(p.Spoken(), IsEmpty()) << "once";
  Type("x");
  EXPECT_THAT(Entries(), IsEmpty());
  EXPECT_THAT(p.Spoken(), ElementsAre("no headings with iLx"));
  PressKey(kKeyBackspace);
  PressKey(kKeyBackspace);
  PressKey(kKeyBackspace);
  EXPECT_EQ(Entries().size(), 3U);
  p.Spoken();
  PressKey(kKeyBackspace);
  EXPECT_THAT(p.Spoken(), IsEmpty());
}

TEST_F(ElementListsTest, EnterGoesThere) {
  Open();
  Type("frui");
  p.Spoken();
  PressKey(kKeyReturn);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(p.desktop.focus, "Text1");
  EXPECT_EQ(AtCaret(), "Fruit");
  EXPECT_THAT(p.Spoken(), ElementsAre("Fruit, heading level 3"));
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 3"));
}

TEST_F(ElementListsTest, ControlEnterActsThere) {
  Open();
  Choose(1);
  Type("next");
  p.Spoken();
  PressKey(kKeyReturn, kCtrlMask);
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 4", "Use 4"));
  EXPECT_THAT(p.Spoken(), IsEmpty());
  Open();
  Choose(2);
  p.Spoken();
  p.Browser().calls.clear();
  PressKey(kKeyReturn, kCtrlMask);
  EXPECT_THAT(p.Browser().calls, ElementsAre("Show 6", "Enter 6"));
  Open();
  Choose(5);
  p.Spoken();
  PressKey(kKeyReturn, kCtrlMask);
  EXPECT_THAT(p.Spoken(), ElementsAre("No link, button or field here"));
}

TEST_F(ElementListsTest, TheKindIsKeptForTheNextTime) {
  Open();
  Choose(1);
  p.desktop.Get<FakeForm>("frmElements").Close(Form::UnloadMode::ControlMenu);
  EXPECT_FALSE(IsOpen());
  p.Spoken();
  Open();
  EXPECT_THAT(p.Spoken(), ElementsAre("Links, Menu, 1 of 2"));
}

TEST_F(ElementListsTest, APageWithoutTheKindIsListedByOneThatItHas) {
  p.Read(MakePage("http://b/", "T", kText));
  p.Browser().TextDescribed(PageTextMaker(kText).Add(Kind::Link, "Menu").Make());
  p.TextPane().SetFocus();
  p.Spoken();
  Open();
  EXPECT_THAT(p.Spoken(), ElementsAre("Links, Menu, 1 of 1"));
  EXPECT_EQ(Kinds().SelectedItem()->Text(), "Links");
  PressKey(kKeyEscape);
  Read("http://a/");
  Open();
  EXPECT_THAT(p.Spoken(), ElementsAre("Headings, Prices, level 1, 1 of 3")) << "is still wanted";
}

TEST_F(ElementListsTest, LeavingItChangesNothing) {
  p.TextPane().Press('H', 0, 'h');
  p.Browser().calls.clear();
  const int caret = p.TextPane().start;
  Open();
  p.desktop.Get<FakeForm>("frmElements").Close(Form::UnloadMode::ControlMenu);
  EXPECT_EQ(p.TextPane().start, caret);
  EXPECT_THAT(p.Browser().calls, IsEmpty());
}

TEST_F(ElementListsTest, AnotherPageTakesItAway) {
  Open();
  EXPECT_TRUE(IsOpen());
  p.Read(MakePage("http://b/", "T", "text"));
  EXPECT_FALSE(IsOpen());
  p.Spoken();
  EXPECT_TRUE(Open());
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(p.Spoken(), ElementsAre("The page is still being read"));
}

TEST_F(ElementListsTest, WhatHasGoneFromThePageIsTold) {
  Open();
  Type("fruit");
  p.Spoken();
  // Read again by itself, while the list is open.
  p.Browser().LeftElement.Raise({"document", 1});
  p.Browser().TextDescribed(PageTextMaker("Menu").Add(Kind::Link, "Menu").Make());
  p.Spoken();
  PressKey(kKeyReturn);
  EXPECT_FALSE(IsOpen());
  EXPECT_THAT(p.Spoken(), ElementsAre("That is no longer in the page"));
}

TEST(EstablishedElements, TheKeyIsNotTaken) {
  Program p;
  p.StartTalking();
  KeyEvent key{'E', kCtrlMask | kShiftMask};
  p.Inside().form->KeyDown.Raise(key);
  EXPECT_EQ(key.KeyCode, 'E');
}

}  // namespace
}  // namespace corvane::tests
