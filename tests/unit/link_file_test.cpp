#include "web/library/LinkFile.h"

#include <gtest/gtest.h>

#include "base/safe_name.h"
#include "base/text.h"

namespace corvane::tests {
namespace {

TEST(SafeFileName, HoldsNothingThatAFileSystemCouldMistake) {
  EXPECT_EQ(SafeFileName("a/b\\c:d*e?f\"g<h>i|j\nk"), "a b c d e f g h i j k");
  EXPECT_EQ(SafeFileName("../../etc/passwd"), "etc passwd");
  EXPECT_EQ(SafeFileName(".bashrc"), "bashrc") << "nothing is hidden";
  EXPECT_EQ(SafeFileName("a\nb\x7f.txt"), "a b.txt");
  EXPECT_EQ(SafeFileName("News: today?"), "News today");
  EXPECT_EQ(SafeFileName(std::string("a\0b\n", 4)), "a b");
  EXPECT_EQ(SafeFileName("bad \xff.txt"), "bad \xEF\xBF\xBD.txt");
}

TEST(SafeFileName, IsNeverEmpty) {
  EXPECT_EQ(SafeFileName(" . "), "page");
  EXPECT_EQ(SafeFileName("", "download"), "download");
  EXPECT_EQ(SafeFileName("\u202E\u200B", "download"), "download");
}

TEST(SafeFileName, KeepsTheEndingOfALongNameAndCutsNoCharacter) {
  const std::string longest = SafeFileName(std::string(500, 'a') + ".pdf");
  EXPECT_EQ(longest, std::string(120, 'a') + ".pdf");
  std::string cyrillic;
  for (int i = 0; i < 100; ++i) cyrillic += "\u0436";
  EXPECT_EQ(text::length(SafeFileName("x" + cyrillic)), 60U) << "119 bytes: a half is left out";
  EXPECT_EQ(SafeFileName("Version 2.0 of something"), "Version 2.0 of something");
}

TEST(PlainName, NothingTurnsTheDirectionOfText) {
  EXPECT_EQ(SafeFileName("invoice\u202Efdp.exe"), "invoicefdp.exe");
  EXPECT_EQ(PlainName("a\u2066b\u2069c\u061Cd\u200Ee\u200Ff"), "abcdef");
}

TEST(PlainName, NothingIsThereUnseen) {
  EXPECT_EQ(PlainName("pay\u200Bpal \u2060\uFEFFbank\u00AD\U000E0041"), "paypal bank");
  EXPECT_EQ(PlainName("\u3164\u115F\u034F"), "");
  EXPECT_EQ(PlainName("\u0436\u00E9\u4E2D\U0001F600"), "\u0436\u00E9\u4E2D\U0001F600");
}

TEST(PlainName, BlanksAndControlCharactersOfEveryKindAreOneBlank) {
  EXPECT_EQ(PlainName("\u00A0a\t\r\n b\u2028c\u3000 d\u0085e "), "a b c d e");
  EXPECT_EQ(PlainName("report.pdf" + std::string(200, ' ') + ".exe"), "report.pdf .exe");
}

TEST(LinkFile, KindIsToldByTheEndingInAnyCase) {
  EXPECT_EQ(LinkKindOf("/f/a.url"), LinkKind::Shortcut);
  EXPECT_EQ(LinkKindOf("/f/a.URL"), LinkKind::Shortcut);
  EXPECT_EQ(LinkKindOf("/f/a.Desktop"), LinkKind::DesktopLink);
  EXPECT_EQ(LinkKindOf("/f/a.HTM"), LinkKind::Page);
  EXPECT_EQ(LinkKindOf("/f/a.html"), LinkKind::Page);
  EXPECT_EQ(LinkKindOf("/f/a.html.txt"), LinkKind::None);
  EXPECT_EQ(LinkKindOf("/f/url"), LinkKind::None);
}

TEST(LinkFile, ShortcutLeadsToItsAddress) {
  const LinkFile file = ReadLinkFile("/f/a.URL", "[InternetShortcut]\r\nURL=http://a/\r\n");
  EXPECT_EQ(file.address, "http://a/");
  EXPECT_EQ(file.name, "");
  EXPECT_EQ(ReadLinkFile("/f/a.url", "nonsense").address, "");
}

TEST(LinkFile, DesktopLinkHasItsOwnName) {
  const std::string content = "[Desktop Entry]\nName=Weather\nName[de]=Wetter\nURL=http://w/\n";
  EXPECT_EQ(ReadLinkFile("w.desktop", content).name, "Weather");
  EXPECT_EQ(ReadLinkFile("w.desktop", content, {"de_DE", "de", "C"}).name, "Wetter");
  EXPECT_EQ(ReadLinkFile("w.desktop", content).address, "http://w/");
  EXPECT_EQ(ReadLinkFile("w.desktop", "[Desktop Entry]\nName=a\u202Eb\n").name, "ab");
}

TEST(LinkFile, SavedPageLeadsToItselfAndHasATitle) {
  const LinkFile file = ReadLinkFile(
      "/f/saved.html", "<html><head><TITLE lang=en>\n Cats &amp;\n dogs </TITLE><title>2</title>");
  EXPECT_EQ(file.address, "/f/saved.html");
  EXPECT_EQ(file.name, "Cats & dogs");
  EXPECT_EQ(ReadLinkFile("/f/saved.htm", "<p>no title").name, "");
  EXPECT_EQ(ReadLinkFile("/f/saved.htm", "<title>never closed").name, "");
}

TEST(LinkFile, IsShownWithoutItsEndingButASavedPageWithIt) {
  EXPECT_EQ(ShownFileName("Weather.URL"), "Weather");
  EXPECT_EQ(ShownFileName("saved.html"), "saved.html");
  EXPECT_EQ(ShownFileName("plain.txt"), "plain.txt");
  EXPECT_EQ(ShownFileName("a\u202Eb.url"), "ab");
}

}  // namespace
}  // namespace corvane::tests
