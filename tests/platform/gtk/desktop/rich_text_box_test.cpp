#include "platform/linux/gtk/rich_text_box.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/clipboard.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/error.h"
#include "platform/linux/gtk/text_box.h"
#include "platform/linux/gtk/text_printer.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using Format = RichTextBox::Format;

std::string ReadFile(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

class RichTextBoxTest : public test::DesktopTest {
 protected:
  void Show() {
    window_.frame.Add(box_);
    window_.Show();
    box_.SetFocus();
    Settle();
  }
  void Press(guint keyval, guint state = 0) { Key(window_.form.window(), keyval, state); }
  void Select(int start, int length) {
    box_.SetSelStart(start);
    box_.SetSelLength(length);
  }

  test::TestWindow window_{windows_, 400, 300};
  RichTextBoxControl box_{"Text1", windows_};
  Connections listening_;
};

TEST_F(RichTextBoxTest, PositionsCountCharacters) {
  box_.SetText("caf\xC3\xA9 \xF0\x9F\x98\x80 end");
  EXPECT_EQ(box_.TextLength(), 10);
  EXPECT_EQ(box_.SelStart(), 0);
  Select(3, 3);
  EXPECT_EQ(box_.SelText(), "\xC3\xA9 \xF0\x9F\x98\x80");
  EXPECT_EQ(box_.SelStart(), 3);
  EXPECT_EQ(box_.SelLength(), 3);
  box_.SetSelStart(99);
  EXPECT_EQ(box_.SelStart(), 10);
  EXPECT_EQ(box_.SelLength(), 0);
  Select(8, 99);
  EXPECT_EQ(box_.SelLength(), 2);
}

TEST_F(RichTextBoxTest, SelTextReplacesAndLeavesTheCaretBehind) {
  box_.SetText("one two");
  Select(4, 3);
  box_.SetSelText("three");
  EXPECT_EQ(box_.Text(), "one three");
  EXPECT_EQ(box_.SelStart(), 9);
  EXPECT_EQ(box_.SelText(), "");
  Select(0, 4);
  box_.SetSelText("");
  EXPECT_EQ(box_.Text(), "three");
}

TEST_F(RichTextBoxTest, CarriageReturnsInFrontOfLineFeedsAreDropped) {
  box_.SetText("a\r\nb");
  EXPECT_EQ(box_.Text(), "a\nb");
  box_.SetSelStart(box_.TextLength());
  box_.SetSelText("c\r\n");
  EXPECT_EQ(box_.Text(), "a\nbc\n");
  EXPECT_EQ(box_.TextLength(), 5);
}

TEST_F(RichTextBoxTest, SelectionChangesAreToldOnceEach) {
  box_.SetText("one two");
  int told = 0;
  listening_ += box_.SelChange.Connect([&] { ++told; });
  box_.SetSelStart(3);
  EXPECT_EQ(told, 1);
  box_.SetSelStart(3);
  EXPECT_EQ(told, 1);
  box_.SetSelLength(2);
  EXPECT_EQ(told, 2);
  box_.SetSelText("xyz");
  EXPECT_EQ(told, 3);
  Show();
  told = 0;
  Press(GDK_KEY_Left);
  EXPECT_EQ(told, 1);
  Press(GDK_KEY_Right, GDK_SHIFT_MASK);
  EXPECT_EQ(told, 2);
}

TEST_F(RichTextBoxTest, TheUserMayTypeAndTabLeaves) {
  TextBoxControl next("next", windows_);
  box_.SetText("bc");
  Show();
  window_.frame.Add(next);
  Settle();
  Press('a');
  EXPECT_EQ(box_.Text(), "abc");
  EXPECT_EQ(box_.SelStart(), 1);
  Press(GDK_KEY_BackSpace);
  Press(GDK_KEY_Return);
  EXPECT_EQ(box_.Text(), "\nbc");
  Press(GDK_KEY_Tab);
  EXPECT_EQ(box_.Text(), "\nbc");
  EXPECT_FALSE(window_.form.window().get_focus()->is_ancestor(box_.widget()));
}

TEST_F(RichTextBoxTest, CutCopyAndPasteGoThroughTheClipboard) {
  box_.SetText("one two");
  Show();
  Select(0, 4);
  Press('x', GDK_CONTROL_MASK);
  EXPECT_EQ(box_.Text(), "two");
  box_.SetSelStart(3);
  Press('v', GDK_CONTROL_MASK);
  WaitFor("the paste", [&] { return box_.Text() == "twoone "; });
  Select(0, 3);
  Press('c', GDK_CONTROL_MASK);
  EXPECT_EQ(box_.Text(), "twoone ");
  std::string copied;
  Gtk::Clipboard::get()->request_text([&](const Glib::ustring& text) { copied = text; });
  WaitFor("the copy", [&] { return copied == "two"; });
}

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

TEST_F(RichTextBoxTest, FormatsAreThoseOfTheFirstCharacter) {
  box_.SetText("one two three");
  Select(4, 3);
  auto format = box_.SelFormat();
  EXPECT_FALSE(format.bold);
  EXPECT_FALSE(format.font_name.empty());
  EXPECT_GT(format.font_size, 0);
  format.bold = format.italic = format.underline = format.strike_thru = true;
  format.is_protected = true;
  format.color = 0x0000FF;
  format.font_name = "Monospace";
  format.font_size = 14;
  format.char_offset = 60;
  box_.SetSelFormat(format);
  EXPECT_EQ(box_.SelFormat(), format);
  Select(3, 4);
  EXPECT_FALSE(box_.SelFormat().bold) << "the blank in front is plain";
  Select(6, 5);
  EXPECT_TRUE(box_.SelFormat().bold);
  Select(4, 3);
  format.bold = false;
  format.color = 0;
  box_.SetSelFormat(format);
  EXPECT_EQ(box_.SelFormat(), format);
  EXPECT_EQ(box_.Text(), "one two three");
}

TEST_F(RichTextBoxTest, ParagraphFormatsHoldForTheWholeParagraph) {
  box_.SetText("one\ntwo\nthree");
  Select(5, 1);
  auto format = box_.SelFormat();
  format.indent = 300;
  format.right_indent = 150;
  format.hanging_indent = 225;
  format.bullet = true;
  format.alignment = RichTextBox::Alignment::Center;
  format.tabs = {600, 1200};
  box_.SetSelFormat(format);
  Select(4, 1);
  EXPECT_EQ(box_.SelFormat(), format);
  Select(0, 1);
  EXPECT_FALSE(box_.SelFormat().bullet);
  Select(8, 1);
  EXPECT_FALSE(box_.SelFormat().bullet);
  Show();  // the bullet is drawn
}

TEST_F(RichTextBoxTest, ANewFormatAtTheCaretIsThatOfTheTextToCome) {
  box_.SetText("plain");
  box_.SetSelStart(5);
  auto format = box_.SelFormat();
  format.bold = true;
  box_.SetSelFormat(format);
  EXPECT_TRUE(box_.SelFormat().bold);
  box_.SetSelText(" thick");
  Select(6, 1);
  EXPECT_TRUE(box_.SelFormat().bold);
  Select(4, 1);
  EXPECT_FALSE(box_.SelFormat().bold);
  Show();
  box_.SetSelStart(11);
  Press('x');
  Select(11, 1);
  EXPECT_TRUE(box_.SelFormat().bold) << "typed text goes on as the text in front of it";
}

TEST_F(RichTextBoxTest, AColourSetOnEmptyTextIsThatOfTheNextText) {
  box_.SetText("");
  auto format = box_.SelFormat();
  format.color = 0xFF0000;
  box_.SetSelFormat(format);
  box_.SetText("blue");
  EXPECT_EQ(box_.SelFormat().color, 0xFF0000U);
  Select(3, 1);
  EXPECT_EQ(box_.SelFormat().color, 0xFF0000U);
}

TEST_F(RichTextBoxTest, RtfComesBackWithItsFormats) {
  box_.SetText("one two\nthree");
  Select(4, 3);
  auto format = box_.SelFormat();
  format.bold = true;
  box_.SetSelFormat(format);
  const auto rtf = box_.TextRTF();
  EXPECT_TRUE(rtf.starts_with("{\\rtf1"));
  RichTextBoxControl other("other", windows_);
  other.SetTextRTF(rtf);
  EXPECT_EQ(other.Text(), "one two\nthree");
  other.SetSelStart(4);
  other.SetSelLength(3);
  EXPECT_TRUE(other.SelFormat().bold);
  const auto selected = other.SelRTF();
  other.SetSelStart(0);
  other.SetSelRTF(selected);
  EXPECT_EQ(other.Text(), "twoone two\nthree");
  EXPECT_EQ(other.SelStart(), 3);
  other.SetTextRTF("no rtf");
  EXPECT_EQ(other.Text(), "no rtf");
}

TEST_F(RichTextBoxTest, FontAndBackgroundAreTheControls) {
  Show();
  EXPECT_EQ(box_.BackColor(), 0x00FFFFFFU);
  box_.SetBackColor(0x0000FF);
  EXPECT_EQ(box_.BackColor(), 0x0000FFU);
  const corvane::Font font{"Mono\"space", 17, true, true};
  box_.SetFont(font);
  EXPECT_EQ(box_.Font(), font);
  box_.SetText("x");
  EXPECT_EQ(box_.SelFormat().font_size, 17);
  Settle();
}

TEST_F(RichTextBoxTest, FilesHoldTextOrRtf) {
  std::string pattern = std::filesystem::temp_directory_path() / "corvane-test.XXXXXX";
  const std::string folder = mkdtemp(pattern.data());
  box_.SetText("caf\xC3\xA9\n");
  box_.SaveFile(folder + "/a.txt", RichTextBox::FileFormat::Text);
  box_.SaveFile(folder + "/a.rtf", RichTextBox::FileFormat::Rtf);
  EXPECT_EQ(ReadFile(folder + "/a.txt"), "caf\xC3\xA9\n");
  EXPECT_EQ(ReadFile(folder + "/a.rtf"), box_.TextRTF());
  EXPECT_THROW(box_.SaveFile(folder + "/no/such/folder", RichTextBox::FileFormat::Text),
               RunTimeError);
  PrintText("one\ntwo " + std::string(20000, 'x'), folder + "/a.pdf");
  WaitFor("the pages",
          [&] { return ReadFile(folder + "/a.pdf").find("%%EOF") != std::string::npos; });
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace corvane::desktop
