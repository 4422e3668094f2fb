#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/linux/gtk/text_pane/rtf_reader.h"
#include "platform/linux/gtk/text_pane/rtf_writer.h"

namespace corvane::desktop {
namespace {

using Format = RichTextBox::Format;
using Alignment = RichTextBox::Alignment;

Format Base() {
  Format base;
  base.font_name = "Sans";
  base.font_size = 10;
  return base;
}

std::string TextOf(const StyledText& text) {
  std::string all;
  for (const auto& run : text) all += run.text;
  return all;
}

std::string Plain(const std::string& body) {
  return TextOf(ReadRtf("{\\rtf1\\ansi " + body + "}", Base()));
}

Format FormatOf(const std::string& body) {
  const auto text = ReadRtf("{\\rtf1\\ansi" + body + "}", Base());
  return text.empty() ? Format() : text.back().format;
}

TEST(RtfReaderTest, KnowsRtfByItsBeginning) {
  EXPECT_TRUE(IsRtf("{\\rtf1 x}"));
  EXPECT_FALSE(IsRtf("plain {\\rtf"));
  EXPECT_FALSE(IsRtf(""));
}

TEST(RtfReaderTest, ReadsTextAndParagraphs) {
  EXPECT_EQ(Plain("one\\par two\\par\r\n three"), "one\ntwo\n three");
  EXPECT_EQ(Plain("a\\line b\\tab c"), "a\nb\tc");
  EXPECT_EQ(Plain("a\\{b\\}c\\\\d"), "a{b}c\\d");
  EXPECT_EQ(Plain("a\r\nb"), "ab") << "line ends of the file are none of the text";
}

TEST(RtfReaderTest, ReadsSpecialCharacters) {
  EXPECT_EQ(Plain("\\lquote x\\rquote\\~\\emdash"),
            "\xE2\x80\x98x\xE2\x80\x99\xC2\xA0\xE2\x80\x94");
}

TEST(RtfReaderTest, ReadsBytesInTheirCodePage) {
  EXPECT_EQ(Plain("caf\\'e9 \\'80"), "caf\xC3\xA9 \xE2\x82\xAC");
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0}", Base())), "\xD0\x9F\xD1\x80");
  EXPECT_EQ(Plain("{\\fonttbl{\\f1\\fcharset204 Arial;}}\\f1\\'cf"), "\xD0\x9F");
  EXPECT_EQ(Plain("{\\fonttbl{\\f1\\fcharset128 Gothic;}}\\f1\\'82\\'a0"), "\xE3\x81\x82");
}

TEST(RtfReaderTest, ReadsUnicodeAndSkipsItsFallback) {
  EXPECT_EQ(Plain("\\u233?x"), "\xC3\xA9x");
  EXPECT_EQ(Plain("\\u233\\'e9x"), "\xC3\xA9x");
  EXPECT_EQ(Plain("\\uc2\\u8364ABx"), "\xE2\x82\xACx");
  EXPECT_EQ(Plain("\\uc0\\u233 x"), "\xC3\xA9x");
  EXPECT_EQ(Plain("{\\uc0 a}\\u233?x"), "a\xC3\xA9x")
      << "the fallback's length belongs to its group";
  EXPECT_EQ(Plain("\\u-10179?\\u-8704?"), "\xF0\x9F\x98\x80");
}

TEST(RtfReaderTest, HalvesOfSurrogatePairsBecomeReplacementCharacters) {
  EXPECT_EQ(Plain("\\u-10179?x"), "\xEF\xBF\xBDx");
  EXPECT_EQ(Plain("\\u-8704?x"), "\xEF\xBF\xBDx");
  EXPECT_EQ(Plain("\\u-10179?\\u-10179?\\u-8704?"), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
  EXPECT_EQ(Plain("\\u-10179?"), "\xEF\xBF\xBD");
}

TEST(RtfReaderTest, ReadsCharacterFormats) {
  const auto format = FormatOf(
      "{\\fonttbl{\\f0 Sans;}{\\f2\\fnil Courier New;}}{\\colortbl;\\red255\\green16\\blue1;}"
      "\\b\\i\\ul\\strike\\fs25\\f2\\cf1\\up3 x");
  EXPECT_TRUE(format.bold && format.italic && format.underline && format.strike_thru);
  EXPECT_EQ(format.font_name, "Courier New");
  EXPECT_EQ(format.font_size, 12.5F);
  EXPECT_EQ(format.color, 0x0001'10FFU);
  EXPECT_EQ(format.char_offset, 30);
  EXPECT_EQ(FormatOf("\\dn4 x").char_offset, -40);
  EXPECT_FALSE(FormatOf("\\b\\b0 x").bold);
  EXPECT_FALSE(FormatOf("\\ul\\ulnone x").underline);
  EXPECT_EQ(FormatOf("\\b\\fs40\\plain x"), Base());
}

TEST(RtfReaderTest, AGroupsFormatsEndWithIt) {
  const auto text = ReadRtf("{\\rtf1 a{\\b b}c}", Base());
  ASSERT_EQ(text.size(), 3U);
  EXPECT_FALSE(text[0].format.bold);
  EXPECT_TRUE(text[1].format.bold);
  EXPECT_FALSE(text[2].format.bold);
}

TEST(RtfReaderTest, ReadsParagraphFormats) {
  const auto format = FormatOf("\\pard\\li720\\fi-360\\ri100\\qc\\tx400\\tx900 x");
  EXPECT_EQ(format.indent, 360);
  EXPECT_EQ(format.hanging_indent, 360);
  EXPECT_EQ(format.right_indent, 100);
  EXPECT_EQ(format.alignment, Alignment::Center);
  EXPECT_THAT(format.tabs, testing::ElementsAre(400, 900));
  EXPECT_EQ(FormatOf("\\qr\\li10\\tx1\\pard x"), Base());
}

TEST(RtfReaderTest, ReadsBullets) {
  const std::string bullet = "{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\'B7}}";
  const auto text = ReadRtf("{\\rtf1\\pard" + bullet + "one\\par\\pard two}", Base());
  ASSERT_EQ(text.size(), 2U);
  EXPECT_EQ(text[0].text, "one\n");
  EXPECT_TRUE(text[0].format.bullet);
  EXPECT_FALSE(text[1].format.bullet);
}

TEST(RtfReaderTest, LeavesOutWhatIsNoText) {
  EXPECT_EQ(Plain("a{\\*\\unknown b}c"), "ac");
  EXPECT_EQ(Plain("a{\\pict\\wmetafile8 0123}b{\\info{\\title T}}c{\\stylesheet{\\s0 Normal;}}"),
            "abc");
  EXPECT_EQ(Plain("{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt link}}"), "link");
  EXPECT_EQ(Plain(std::string("a\\bin5 {}\\}{b", 13)), "ab");
}

TEST(RtfReaderTest, HostileInputIsSafe) {
  std::string deep = "{\\rtf1 a";
  for (int i = 0; i < 100000; ++i) deep += "{\\b ";
  deep += "lost";
  for (int i = 0; i < 100000; ++i) deep += "}";
  EXPECT_EQ(TextOf(ReadRtf(deep + "z}", Base())), "az");
  EXPECT_EQ(Plain("}}}}x"), "") << "the document has ended";
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1 a{{{", Base())), "a");
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1 a\\", Base())), "a");
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1 a\\'", Base())), "a");
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1 a\\'f", Base())), "af");
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1 a\\bin99999999999999 b", Base())), "a");
  EXPECT_EQ(TextOf(ReadRtf("{\\rtf1 a\\bin-5 b", Base())), "ab");
  EXPECT_EQ(Plain("\\fs99999999999999999999 x\\fs-5 y\\f77 z\\cf9 w\\li-2147483648 v"), "xyzwv");
  EXPECT_EQ(Plain(std::string("a\0b", 3)), "a b");
}

TEST(RtfWriterTest, WritesPlainAscii) {
  const auto rtf = WriteRtf({{"caf\xC3\xA9 {\\} \xF0\x9F\x98\x80", Base()}}, Base());
  EXPECT_TRUE(IsRtf(rtf));
  for (const char c : rtf) EXPECT_LT(static_cast<unsigned char>(c), 0x80);
}

StyledText RoundTrip(const StyledText& text) { return ReadRtf(WriteRtf(text, Base()), Base()); }

TEST(RtfWriterTest, TextComesBackAsItWas) {
  for (const std::string text :
       {"", "one", "one\n", "\n\n", "a\tb", "a{b}\\c", " blanks  kept ", "1 after 2",
        "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", "\\par is text", "u123?", "a;b"}) {
    EXPECT_EQ(TextOf(RoundTrip({{text, Base()}})), text);
  }
}

TEST(RtfWriterTest, CharacterFormatsComeBack) {
  StyledText text = {{"plain ", Base()}};
  const auto add = [&](const std::string& word, const std::function<void(Format&)>& change) {
    auto format = Base();
    change(format);
    text.push_back({word, format});
  };
  add("bold ", [](Format& f) { f.bold = true; });
  add("italic ", [](Format& f) { f.italic = true; });
  add("under ", [](Format& f) { f.underline = true; });
  add("struck ", [](Format& f) { f.strike_thru = true; });
  add("kept ", [](Format& f) { f.is_protected = true; });
  add("font ", [](Format& f) {
    f.font_name =
        "Fran\xC3\xA7"
        "ais Serif";
  });
  add("size ", [](Format& f) { f.font_size = 12.5F; });
  add("red ", [](Format& f) { f.color = 0x0000FF; });
  add("blue ", [](Format& f) { f.color = 0xFF0000; });
  add("up ", [](Format& f) { f.char_offset = 50; });
  add("down ", [](Format& f) { f.char_offset = -50; });
  add("1 plain again", [](Format&) {});
  EXPECT_EQ(RoundTrip(text), text);
}

TEST(RtfWriterTest, ParagraphFormatsComeBack) {
  StyledText text;
  const auto add = [&](const std::string& line, const std::function<void(Format&)>& change) {
    auto format = Base();
    change(format);
    text.push_back({line, format});
  };
  add("left\n", [](Format& f) { f.indent = 300; });
  add("hanging\n", [](Format& f) {
    f.indent = 100;
    f.hanging_indent = 200;
  });
  add("first further in\n", [](Format& f) {
    f.indent = 400;
    f.hanging_indent = -200;
  });
  add("right\n", [](Format& f) { f.right_indent = 300; });
  add("centred\n", [](Format& f) { f.alignment = Alignment::Center; });
  add("to the right\n", [](Format& f) { f.alignment = Alignment::Right; });
  add("tabs\n", [](Format& f) { f.tabs = {100, 2000}; });
  add("bullet\n", [](Format& f) { f.bullet = true; });
  add("plain", [](Format&) {});
  EXPECT_EQ(RoundTrip(text), text);
}

TEST(RtfWriterTest, ABoldControlFontIsNoFormatOfTheText) {
  auto base = Base();
  base.bold = true;
  auto thin = base;
  thin.bold = false;
  const StyledText text = {{"thick ", base}, {"thin", thin}};
  EXPECT_EQ(ReadRtf(WriteRtf(text, base), base), text);
}

}  // namespace
}  // namespace corvane::desktop
