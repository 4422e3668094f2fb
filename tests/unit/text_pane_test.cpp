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
  ctlText pane{desktop};
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

TEST_F(TextPane, FormatsAreDelegated) {
  pane.SetSelBold(true);
  pane.SetSelItalic(true);
  pane.SetSelFontName("Serif");
  pane.SetSelFontSize(14);
  pane.SetSelIndent(720);
  pane.SetSelAlignment(RichTextBox::Alignment::Center);
  pane.SetSelTabCount(2);
  pane.SetSelTabs(1, 1440);
  pane.SetSelTabs(7, 99);  // there is no such tab
  EXPECT_TRUE(box.pending.bold);
  EXPECT_TRUE(box.pending.italic);
  EXPECT_EQ(pane.SelFontName(), "Serif");
  EXPECT_EQ(pane.SelFontSize(), 14);
  EXPECT_EQ(pane.SelIndent(), 720);
  EXPECT_EQ(pane.SelAlignment(), RichTextBox::Alignment::Center);
  EXPECT_THAT(box.pending.tabs, ElementsAre(0, 1440));
  EXPECT_EQ(pane.SelTabs(7), 0);
}

TEST_F(TextPane, HostCanChangeAKeyOnItsWay) {
  const auto connection = pane.KeyPress.Connect([](int& code) { code = 0; });
  EXPECT_FALSE(box.Press('A', 0, 'a'));
  int released = 0;
  const auto up = pane.KeyUp.Connect([&](KeyEvent& key) { released = key.KeyCode; });
  box.Press('B');
  EXPECT_EQ(released, 'B');
}

TEST_F(TextPane, LayoutMovesTheMirrorOutOfSight) {
  pane.Resize(3000, 1000);
  EXPECT_EQ(box.width, 3000);
  EXPECT_EQ(box.height, 1000);
  EXPECT_EQ(mirror.left, 6000);
  EXPECT_EQ(mirror.top, 6000);
}

TEST_F(TextPane, FocusIsPassedOn) {
  pane.SetFocus();
  EXPECT_EQ(desktop.focus, "Text1");
}

}  // namespace
}  // namespace corvane::tests
