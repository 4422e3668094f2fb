#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/ctlText.h"
#include "tests/fakes/fake_desktop.h"

namespace corvane::tests {
namespace {

using namespace corvane::fakes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct TextPane : ::testing::Test {
  FakeDesktop desktop;
  ctlText pane{desktop, "ctlText1"};
  FakeRichTextBox& box = desktop.Get<FakeRichTextBox>("Text1");
  FakeListBox& mirror = desktop.Get<FakeListBox>("List1");

  std::vector<std::size_t> PieceLengths() const {
    std::vector<std::size_t> lengths;
    for (const auto& piece : mirror.list) lengths.push_back(text::length(piece));
    return lengths;
  }
};

TEST_F(TextPane, AppendingNothingChangesNothing) {
  pane.AddText("", true);
  EXPECT_EQ(pane.Text(), "");
  EXPECT_THAT(mirror.list, IsEmpty());
  EXPECT_EQ(desktop.yields, 0);
}

TEST_F(TextPane, WhatBelongsToATextIsDoneBeforeEventsRun) {
  std::vector<std::string> log;
  desktop.on_yield = [&] { log.emplace_back("events"); };
  pane.AddText("one", true, [&] { log.push_back(pane.Text() + " appended"); });
  EXPECT_THAT(log, ElementsAre("one appended", "events"));
  log.clear();
  desktop.failing = "Text1";
  pane.AddText("lost", true, [&] { log.emplace_back("not even written"); });
  EXPECT_THAT(log, ElementsAre("not even written", "events"));
}

TEST_F(TextPane, ThreeHundredCharactersMakeThreeEntriesAndSelectTheLast) {
  pane.AddText(std::string(300, 'x'), true);
  EXPECT_THAT(PieceLengths(), ElementsAre(127U, 127U, 46U));
  EXPECT_EQ(mirror.selected, 2);
  EXPECT_EQ(desktop.yields, 3);
}

TEST_F(TextPane, Character128IsShownButNotMirrored) {
  pane.AddText(std::string(127, 'x').append("y"), true);
  EXPECT_THAT(mirror.list, ElementsAre(std::string(127, 'x')));
  EXPECT_EQ(pane.Text().back(), 'y');
}

TEST_F(TextPane, TwentyThousandCharactersAreMirroredUpToTheBound) {
  pane.AddText(std::string(20000, 'x'), true);
  EXPECT_EQ(mirror.list.size(), 100U);
  EXPECT_EQ(PieceLengths().back(), 127U);
  EXPECT_EQ(pane.TextLength(), 20000);
}

TEST_F(TextPane, MirrorCountsCharactersNotBytes) {
  std::string text;
  for (int i = 0; i < 130; ++i) text += "\xC3\xA9";
  pane.AddText(text, true);
  EXPECT_THAT(PieceLengths(), ElementsAre(127U, 3U));
}

TEST_F(TextPane, MirrorWith101EntriesIsEmptiedFirst) {
  for (int i = 0; i < 101; ++i) pane.AddText("a", true);
  EXPECT_EQ(mirror.list.size(), 101U);
  pane.AddText("b", true);
  EXPECT_THAT(mirror.list, ElementsAre("b"));
}

TEST_F(TextPane, MirrorWith100EntriesGrowsPast101) {
  for (int i = 0; i < 100; ++i) pane.AddText("a", true);
  pane.AddText(std::string(300, 'x'), true);
  EXPECT_EQ(mirror.list.size(), 103U);
}

TEST_F(TextPane, CaretGoesToTheNewTextsFirstCharacterOrBehindIt) {
  pane.AddText("one ", true);
  EXPECT_EQ(pane.SelStart(), 4);
  pane.AddText("two", false);
  EXPECT_EQ(pane.SelStart(), 4);
  EXPECT_EQ(pane.Text(), "one two");
  pane.AddText("three", true);
  EXPECT_EQ(pane.SelStart(), 12);
}

TEST_F(TextPane, TextIsAppendedAtTheEndWhereverTheCaretWas) {
  pane.AddText("one", true);
  pane.SetSelStart(0);
  pane.SetSelLength(2);
  pane.AddText("two", true);
  EXPECT_EQ(pane.Text(), "onetwo");
}

TEST_F(TextPane, MirrorThatFailsDoesNotStopTheText) {
  mirror.refuses = true;
  pane.AddText("still here", true);
  EXPECT_EQ(pane.Text(), "still here");
}

TEST_F(TextPane, BoxThatFailsDoesNotStopTheMirror) {
  box.refuses = true;
  pane.AddText("only mirrored", true);
  EXPECT_THAT(mirror.list, ElementsAre("only mirrored"));
}

TEST_F(TextPane, ClearTextKeepsTheMirror) {
  pane.AddText("gone", true);
  pane.ClearText();
  EXPECT_EQ(pane.Text(), "");
  EXPECT_THAT(mirror.list, ElementsAre("gone"));
}

TEST_F(TextPane, ForeColorRecoloursTheWholeTextAndKeepsIt) {
  pane.AddText("colourful", true);
  pane.SetForeColor(0x0000FF);
  EXPECT_EQ(pane.Text(), "colourful");
  for (const auto& format : box.formats) EXPECT_EQ(format.color, 0x0000FFU);
  pane.SetSelStart(3);
  pane.SetSelLength(1);
  pane.SetSelColor(0x00FF00);
  EXPECT_EQ(pane.ForeColor(), 0x00FF00U);
}

TEST_F(TextPane, SaveFileWritesIntoTheProgramsFolder) {
  pane.SaveFile("page.txt", RichTextBox::FileFormat::Text);
  EXPECT_EQ(box.saved_path, "/opt/corvane/page.txt");
  EXPECT_EQ(box.saved_format, RichTextBox::FileFormat::Text);
  desktop.files.program_folder = "/";
  pane.SaveFile("page.rtf");
  EXPECT_EQ(box.saved_path, "/page.rtf");
  EXPECT_EQ(box.saved_format, RichTextBox::FileFormat::Rtf);
}

TEST_F(TextPane, OnlyStrikeThruTellsTheContainer) {
  std::vector<std::string> told;
  const auto connection =
      pane.PropertyChanged.Connect([&](const std::string& name) { told.push_back(name); });
  pane.SetSelBold(true);
  pane.SetSelUnderline(true);
  pane.SetSelColor(1);
  EXPECT_THAT(told, IsEmpty());
  pane.SetSelStrikeThru(true);
  EXPECT_THAT(told, ElementsAre("SelStrikeThru"));
  EXPECT_TRUE(pane.SelStrikeThru());
}

TEST_F(TextPane, OtherSettersTellNothing) {
  int told = 0;
  const auto connection = pane.PropertyChanged.Connect([&](const std::string&) { ++told; });
  pane.SetSelText("x");
  pane.SetSelRTF("{\\rtf1 x}");
  pane.SetSelStart(0);
  pane.SetSelLength(1);
  pane.SetSelItalic(true);
  pane.SetSelProtected(true);
  pane.SetSelBullet(true);
  pane.SetSelFontName("Serif");
  pane.SetSelFontSize(14);
  pane.SetSelCharOffset(20);
  pane.SetSelIndent(1);
  pane.SetSelRightIndent(1);
  pane.SetSelHangingIndent(1);
  pane.SetSelAlignment(RichTextBox::Alignment::Right);
  pane.SetSelTabCount(1);
  pane.SetSelTabs(0, 1);
  pane.SetText("y");
  pane.SetTextRTF("{\\rtf1 y}");
  pane.SetBackColor(1);
  pane.SetFont({"Serif", 12});
  pane.SetForeColor(1);
  EXPECT_EQ(told, 0);
}

// A setter and the getter of the same name reach the box's property.
template <class Value, class Set, class Get>
void ExpectKept(ctlText& pane, Set set, Get get, const Value& value) {
  EXPECT_FALSE((pane.*get)() == value) << "the test must change something";
  (pane.*set)(value);
  EXPECT_EQ((pane.*get)(), value);
}

TEST_F(TextPane, FormatsOfTheSelectionAreTheBoxs) {
  pane.AddText("abc", true);
  pane.SetSelStart(1);
  pane.SetSelLength(1);
  ExpectKept(pane, &ctlText::SetSelBold, &ctlText::SelBold, true);
  ExpectKept(pane, &ctlText::SetSelItalic, &ctlText::SelItalic, true);
  ExpectKept(pane, &ctlText::SetSelUnderline, &ctlText::SelUnderline, true);
  ExpectKept(pane, &ctlText::SetSelStrikeThru, &ctlText::SelStrikeThru, true);
  ExpectKept(pane, &ctlText::SetSelProtected, &ctlText::SelProtected, true);
  ExpectKept(pane, &ctlText::SetSelBullet, &ctlText::SelBullet, true);
  ExpectKept<std::string>(pane, &ctlText::SetSelFontName, &ctlText::SelFontName, "Serif");
  ExpectKept(pane, &ctlText::SetSelFontSize, &ctlText::SelFontSize, 14.0F);
  ExpectKept<Color>(pane, &ctlText::SetSelColor, &ctlText::SelColor, 0x0000FF);
  ExpectKept(pane, &ctlText::SetSelCharOffset, &ctlText::SelCharOffset, -60);
  ExpectKept(pane, &ctlText::SetSelIndent, &ctlText::SelIndent, 720);
  ExpectKept(pane, &ctlText::SetSelRightIndent, &ctlText::SelRightIndent, 360);
  ExpectKept(pane, &ctlText::SetSelHangingIndent, &ctlText::SelHangingIndent, 180);
  ExpectKept(pane, &ctlText::SetSelAlignment, &ctlText::SelAlignment,
             RichTextBox::Alignment::Center);
  ExpectKept(pane, &ctlText::SetSelTabCount, &ctlText::SelTabCount, 3);
  const RichTextBox::Format format{.bold = true,
                                   .italic = true,
                                   .underline = true,
                                   .strike_thru = true,
                                   .is_protected = true,
                                   .bullet = true,
                                   .font_name = "Serif",
                                   .font_size = 14,
                                   .color = 0x0000FF,
                                   .char_offset = -60,
                                   .indent = 720,
                                   .right_indent = 360,
                                   .hanging_indent = 180,
                                   .alignment = RichTextBox::Alignment::Center,
                                   .tabs = {0, 0, 0}};
  EXPECT_EQ(box.formats[1], format);
  EXPECT_EQ(box.formats[0], RichTextBox::Format{});
}

TEST_F(TextPane, OneFormatIsSetAndTheOthersStayAsDifferentAsTheyWere) {
  pane.AddText("red blue", true);
  for (std::size_t i = 0; i < 8; ++i) box.formats[i].color = i < 4 ? 0x0000FF : 0xFF0000;
  pane.SetSelStart(0);
  pane.SetSelLength(8);
  pane.SetSelBold(true);
  for (std::size_t i = 0; i < 8; ++i) {
    EXPECT_TRUE(box.formats[i].bold) << i;
    EXPECT_EQ(box.formats[i].color, i < 4 ? 0x0000FFU : 0xFF0000U) << i;
  }
}

TEST_F(TextPane, TextSelectionAndLooksAreTheBoxs) {
  ExpectKept<std::string>(pane, &ctlText::SetText, &ctlText::Text, "one two");
  EXPECT_EQ(box.text, "one two");
  ExpectKept(pane, &ctlText::SetSelStart, &ctlText::SelStart, 4);
  ExpectKept(pane, &ctlText::SetSelLength, &ctlText::SelLength, 3);
  EXPECT_EQ(pane.SelText(), "two");
  EXPECT_EQ(pane.SelRTF(), "{\\rtf1 two}");
  pane.SetSelRTF("{\\rtf1 three}");
  EXPECT_EQ(pane.TextRTF(), "{\\rtf1 one three}");
  pane.SetTextRTF("{\\rtf1 four}");
  EXPECT_EQ(box.text, "four");
  ExpectKept<Color>(pane, &ctlText::SetBackColor, &ctlText::BackColor, 0x00FF00);
  EXPECT_EQ(box.back_color, 0x00FF00U);
  ExpectKept(pane, &ctlText::SetFont, &ctlText::Font, Font{"Serif", 12, true, true});
  EXPECT_EQ(box.font.name, "Serif");
  pane.SelPrint(77);
  EXPECT_EQ(box.printed_on, 77);
}

TEST_F(TextPane, LineOfACharacterIsTheBoxs) {
  pane.SetText("one\ntwo");
  EXPECT_EQ(pane.GetLineFromChar(3), 0);
  EXPECT_EQ(pane.GetLineFromChar(4), 1);
}

TEST_F(TextPane, TabsAreSetOneByOne) {
  pane.SetSelTabCount(2);
  pane.SetSelTabs(1, 1440);
  pane.SetSelTabs(7, 99);  // there is no such tab
  EXPECT_THAT(box.pending.tabs, ElementsAre(0, 1440));
  EXPECT_EQ(pane.SelTabs(7), 0);
}

TEST_F(TextPane, HostCanChangeAKeyOnItsWay) {
  const auto connection = pane.KeyPress.Connect([](int& code) { code = 0; });
  EXPECT_FALSE(box.Press('A', 0, 'a'));
  const auto down = pane.KeyDown.Connect([](KeyEvent& key) {
    if (key.KeyCode == 'B') key.KeyCode = 0;
  });
  EXPECT_FALSE(box.Press('B'));
  EXPECT_TRUE(box.Press('C'));
}

TEST_F(TextPane, KeysAndSelectionChangesGoToTheHost) {
  std::vector<std::string> told;
  Connections listening;
  listening += pane.KeyDown.Connect([&](KeyEvent& key) {
    told.push_back("down " + std::to_string(key.KeyCode) + " " + std::to_string(key.Shift));
  });
  listening +=
      pane.KeyPress.Connect([&](int& code) { told.push_back("press " + std::to_string(code)); });
  listening += pane.KeyUp.Connect([&](KeyEvent& key) {
    told.push_back("up " + std::to_string(key.KeyCode) + " " + std::to_string(key.Shift));
  });
  listening += pane.SelChange.Connect([&] { told.push_back("selection"); });
  box.Press('A', kShiftMask, 'A');
  box.SelChange.Raise();
  EXPECT_THAT(told, ElementsAre("down 65 1", "press 65", "up 65 1", "selection"));
}

TEST_F(TextPane, EveryResizeFillsTheControlAndKeepsTheMirrorOutOfSight) {
  auto& frame = desktop.Get<FakeElasticFrame>("ctlText1");
  EXPECT_THAT(frame.children, ElementsAre(&box, &mirror));
  for (const float size : {3000.0F, 1200.0F}) {
    frame.width = size;
    frame.height = size / 2;
    frame.RealignFrame.Raise();
    EXPECT_EQ(box.width, size);
    EXPECT_EQ(box.height, size / 2);
    EXPECT_EQ(mirror.left, 2 * size);
    EXPECT_EQ(mirror.top, 2 * size);
  }
}

TEST_F(TextPane, LayoutThatFailsDoesNotStopTheRest) {
  auto& frame = desktop.Get<FakeElasticFrame>("ctlText1");
  frame.width = 3000;
  desktop.failing = "Text1";
  frame.RealignFrame.Raise();
  EXPECT_EQ(mirror.left, 6000);
}

TEST_F(TextPane, FocusIsPassedOn) {
  pane.SetFocus();
  EXPECT_EQ(desktop.focus, "Text1");
  desktop.focus.clear();
  desktop.Get<FakeElasticFrame>("ctlText1").SetFocus();
  EXPECT_EQ(desktop.focus, "Text1");
}

}  // namespace
}  // namespace corvane::tests
