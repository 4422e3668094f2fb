#include <gdk/gdkkeysyms.h>
#include <gtkmm/clipboard.h>

#include "platform/linux/gtk/controls/text_box.h"
#include "tests/platform/gtk/desktop/rich_text_box_fixture.h"

namespace corvane::desktop {
namespace {

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

TEST_F(RichTextBoxTest, WhatIsAppendedLeavesCaretAndSelectionAlone) {
  Show();
  box_.SetText("one\ntwo");
  int changes = 0;
  listening_ += box_.SelChange.Connect([&] { ++changes; });
  box_.Append("three\r\n");
  EXPECT_EQ(box_.Text(), "one\ntwo\nthree\n") << "on a line of its own";
  EXPECT_EQ(box_.SelStart(), 0);
  Select(4, 3);
  changes = 0;
  box_.Append("four");
  EXPECT_EQ(box_.SelText(), "two");
  EXPECT_EQ(changes, 0);
  box_.SetSelStart(box_.TextLength());
  const int end = box_.SelStart();
  box_.Append("five");
  EXPECT_EQ(box_.SelStart(), end) << "also at the end";
  EXPECT_EQ(box_.Text(), "one\ntwo\nthree\nfour\nfive");
}

}  // namespace
}  // namespace corvane::desktop
