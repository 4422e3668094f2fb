
#include "base/error.h"
#include "platform/linux/gtk/text_pane/text_printer.h"
#include "tests/platform/gtk/desktop/rich_text_box_fixture.h"
#include "tests/temporary_folder.h"

namespace corvane::desktop {
namespace {

using Format = RichTextBox::Format;

TEST_F(RichTextBoxTest, AChangeLeavesTheRestOfEachRunAsItWas) {
  box_.SetText("red blue\nplain");
  Select(0, 3);
  box_.ChangeSelFormat([](Format& format) { format.color = 0x0000FF; });
  Select(4, 4);
  box_.ChangeSelFormat([](Format& format) { format.color = 0xFF0000; });
  Select(0, 14);
  box_.ChangeSelFormat([](Format& format) { format.bold = true; });
  const auto at = [&](int position) {
    Select(position, 1);
    return box_.SelFormat();
  };
  EXPECT_EQ(at(1).color, 0x0000FFU);
  EXPECT_EQ(at(5).color, 0xFF0000U);
  EXPECT_EQ(at(10).color, at(3).color) << "as the blank between";
  EXPECT_NE(at(10).color, 0x0000FFU);
  for (const int position : {0, 2, 3, 4, 7, 9, 13}) EXPECT_TRUE(at(position).bold) << position;
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
  Give(format);
  EXPECT_EQ(box_.SelFormat(), format);
  Select(3, 4);
  EXPECT_FALSE(box_.SelFormat().bold) << "the blank in front is plain";
  Select(6, 5);
  EXPECT_TRUE(box_.SelFormat().bold);
  Select(4, 3);
  format.bold = false;
  format.color = 0;
  Give(format);
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
  Give(format);
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
  Give(format);
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
  Give(format);
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
  Give(format);
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
  const test::TemporaryFolder folder;
  box_.SetText("caf\xC3\xA9\n");
  box_.SaveFile(folder / "a.txt", RichTextBox::FileFormat::Text);
  box_.SaveFile(folder / "a.rtf", RichTextBox::FileFormat::Rtf);
  EXPECT_EQ(folder.Read("a.txt"), "caf\xC3\xA9\n");
  EXPECT_EQ(folder.Read("a.rtf"), box_.TextRTF());
  EXPECT_THROW(box_.SaveFile(folder / "no/such/folder", RichTextBox::FileFormat::Text),
               RunTimeError);
  PrintText("one\ntwo " + std::string(20000, 'x'), folder / "a.pdf");
  WaitFor("the pages", [&] { return folder.Read("a.pdf").find("%%EOF") != std::string::npos; });
}

}  // namespace
}  // namespace corvane::desktop
