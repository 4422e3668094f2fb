#include <gdk/gdkkeysyms.h>

#include "tests/platform/gtk/desktop/rich_text_box_fixture.h"

namespace corvane::desktop {
namespace {

TEST_F(RichTextBoxTest, BeforeItIsShownAParagraphIsALine) {
  box_.SetText("first\n\nthird line");
  EXPECT_EQ(box_.GetLineFromChar(0), 0);
  EXPECT_EQ(box_.GetLineFromChar(5), 0);
  EXPECT_EQ(box_.GetLineFromChar(6), 1);
  EXPECT_EQ(box_.GetLineFromChar(7), 2);
  EXPECT_EQ(box_.GetLineFromChar(99), 2);
  EXPECT_EQ(box_.LineIndex(0), 0);
  EXPECT_EQ(box_.LineIndex(1), 6);
  EXPECT_EQ(box_.LineIndex(2), 7);
  EXPECT_EQ(box_.LineIndex(3), -1);
  EXPECT_EQ(box_.LineIndex(-1), -1);
  EXPECT_EQ(box_.LineLength(0), 5);
  EXPECT_EQ(box_.LineLength(6), 0);
  EXPECT_EQ(box_.LineLength(9), 10);
  EXPECT_EQ(box_.GetLine(2, 100), "third line");
  EXPECT_EQ(box_.GetLine(2, 5), "third");
  EXPECT_EQ(box_.GetLine(2, 0), "");
  EXPECT_EQ(box_.GetLine(7, 100), "");
}

TEST_F(RichTextBoxTest, EmptyTextHasOneLine) {
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(box_.GetLineFromChar(0), 0);
    EXPECT_EQ(box_.LineIndex(0), 0);
    EXPECT_EQ(box_.LineIndex(1), -1);
    EXPECT_EQ(box_.LineLength(0), 0);
    EXPECT_EQ(box_.GetLine(0, 10), "");
    if (round == 0) Show();
  }
}

class ShownRichTextBoxTest : public RichTextBoxTest {
 protected:
  // Whatever lines there are: they follow each other, cover the text, and every
  // position is on the line that says so. Returns how many there are.
  int CheckLines() {
    int line = 0;
    int end = 0;
    for (; box_.LineIndex(line) != -1; ++line) {
      const int start = box_.LineIndex(line);
      EXPECT_TRUE(start == end || start == end + 1) << "line " << line;
      const int length = box_.LineLength(start);
      EXPECT_EQ(box_.GetLineFromChar(start), line);
      EXPECT_EQ(box_.GetLineFromChar(start + std::max(0, length - 1)), line);
      Select(start, length);
      EXPECT_EQ(box_.GetLine(line, 1000000), box_.SelText());
      end = start + length;
    }
    const std::string text = box_.Text();
    EXPECT_EQ(end, box_.TextLength());
    return line;
  }
  static std::string Words(int count) {
    std::string words;
    for (int i = 0; i < count; ++i) words += "word" + std::to_string(i) + " ";
    return words;
  }
};

TEST_F(ShownRichTextBoxTest, AWrappedLineIsALine) {
  box_.SetText(Words(60) + "\nshort\n\n" + Words(30));
  Show();
  const int lines = CheckLines();
  EXPECT_GT(lines, 8);
  EXPECT_EQ(box_.GetLineFromChar(0), 0);
  EXPECT_EQ(box_.GetLineFromChar(box_.TextLength()), lines - 1);
  window_.form.SetWidth(800 * kTwipsPerPixel);
  WaitFor("the new width", [&] { return box_.Width() == 800 * kTwipsPerPixel; });
  Settle();
  EXPECT_LT(CheckLines(), lines);
}

TEST_F(ShownRichTextBoxTest, LinesFollowEdits) {
  Show();
  box_.SetText("one\ntwo\nthree");
  EXPECT_EQ(CheckLines(), 3);
  box_.SetSelStart(4);
  box_.SetSelText("a\nb\nc");
  EXPECT_EQ(box_.Text(), "one\na\nb\nctwo\nthree");
  EXPECT_EQ(CheckLines(), 5);
  Select(2, 6);
  box_.SetSelText("");
  EXPECT_EQ(box_.Text(), "onctwo\nthree");
  EXPECT_EQ(CheckLines(), 2);
  Select(0, 0);
  box_.SetSelText(Words(60));
  EXPECT_EQ(CheckLines(), box_.GetLineFromChar(box_.TextLength()) + 1);
  Select(0, 300);
  box_.SetSelText("x");
  CheckLines();
}

TEST_F(ShownRichTextBoxTest, TheCaretMovesFromLineToLine) {
  box_.SetText(Words(60) + "\nlast");
  Show();
  int line = 0;
  for (int i = 0; i < 4; ++i) {
    Press(GDK_KEY_Down);
    EXPECT_EQ(box_.GetLineFromChar(box_.SelStart()), ++line);
  }
  Press(GDK_KEY_End, GDK_CONTROL_MASK);
  EXPECT_EQ(box_.GetLine(box_.GetLineFromChar(box_.SelStart()), 100), "last");
}

TEST_F(ShownRichTextBoxTest, LongTextsKeepTheirLinesInOrder) {
  std::string text;
  for (int i = 0; i < 3000; ++i) text += Words(10) + "\n";
  box_.SetText(text);
  Show();
  // From place to place: numbers rise with positions and lead back to the line.
  int before = -1;
  for (int position = 0; position < box_.TextLength(); position += 9973) {
    const int line = box_.GetLineFromChar(position);
    EXPECT_GT(line, before);
    const int start = box_.LineIndex(line);
    EXPECT_LE(start, position);
    EXPECT_LE(position, start + box_.LineLength(position));
    EXPECT_EQ(box_.GetLineFromChar(start), line);
    before = line;
  }
  // Upwards, as a caret moves: never the same number twice.
  box_.SetSelStart(box_.TextLength() / 2);
  before = box_.GetLineFromChar(box_.SelStart());
  for (int i = 0; i < 20; ++i) {
    Press(GDK_KEY_Up);
    const int line = box_.GetLineFromChar(box_.SelStart());
    EXPECT_LT(line, before);
    before = line;
  }
}

TEST_F(ShownRichTextBoxTest, AVeryLongLineIsWholeForItsReaders) {
  const std::string text = Words(3000);
  box_.SetText("top\n" + text + "\nend");
  Show();
  EXPECT_EQ(box_.Text(), "top\n" + text + "\nend");
  EXPECT_EQ(box_.TextLength(), static_cast<int>(text.size()) + 8);
  Select(4, static_cast<int>(text.size()));
  EXPECT_EQ(box_.SelText(), text);
  EXPECT_EQ(box_.SelLength(), static_cast<int>(text.size()));
  Press('c', GDK_CONTROL_MASK);
  std::string copied;
  Gtk::Clipboard::get()->request_text([&](const Glib::ustring& got) { copied = got; });
  WaitFor("the copy", [&] { return copied == text; });
  CheckLines();
  box_.SetSelStart(10000);
  box_.SetSelText("inserted");
  Select(10000, 8);
  EXPECT_EQ(box_.SelText(), "inserted");
  EXPECT_EQ(box_.TextLength(), static_cast<int>(text.size()) + 16);
}

}  // namespace
}  // namespace corvane::desktop
