#include "platform/linux/gtk/controls/combo_box.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/combobox.h>
#include <gtkmm/treeview.h>

#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

Gtk::TreeView* FindList(Gtk::Widget& widget) {
  if (auto* list = dynamic_cast<Gtk::TreeView*>(&widget)) return list;
  if (auto* container = dynamic_cast<Gtk::Container*>(&widget)) {
    for (auto* child : container->get_children()) {
      if (auto* list = FindList(*child)) return list;
    }
  }
  return nullptr;
}

class ComboBoxTest : public test::DesktopTest, public testing::WithParamInterface<ComboBox::Style> {
 protected:
  void Make(ComboBox::Style style) {
    combo_ = ComboBoxControl::Create("cbo", style, windows_);
    combo_->SetAccessibleName("Links");
    window_.frame.Add(*combo_);
    window_.Show();
    combo_->SetFocus();
    Settle();
    listening_ += combo_->Click.Connect([this] { clicks_.push_back(combo_->Text()); });
    listening_ += combo_->DblClick.Connect([this] { ++double_clicks_; });
  }
  void Fill(int count) {
    for (int i = 0; i < count; ++i) combo_->AddItem("item " + std::to_string(i));
  }
  void Press(guint keyval, guint state = 0) { Key(window_.form.window(), keyval, state); }

  test::TestWindow window_{windows_};
  std::unique_ptr<ComboBoxControl> combo_;
  Connections listening_;
  std::vector<std::string> clicks_;
  int double_clicks_ = 0;
};

using testing::ElementsAre;

TEST_P(ComboBoxTest, HoldsFieldAndList) {
  Make(GetParam());
  EXPECT_EQ(combo_->ListCount(), 0);
  EXPECT_EQ(combo_->ListIndex(), -1);
  Fill(3);
  EXPECT_EQ(combo_->ListCount(), 3);
  EXPECT_EQ(combo_->List(2), "item 2");
  EXPECT_ANY_THROW(combo_->List(3));
  EXPECT_ANY_THROW(combo_->List(-1));
  EXPECT_EQ(combo_->Text(), "");
  combo_->SetText("caf\xC3\xA9s");
  combo_->SetSelStart(4);
  EXPECT_EQ(combo_->SelStart(), 4);
  combo_->SetSelStart(99);
  EXPECT_EQ(combo_->SelStart(), 5);
  combo_->SetSelStart(-1);
  EXPECT_EQ(combo_->SelStart(), 0);
}

TEST_P(ComboBoxTest, SelectingAnEntryShowsItAndRaisesClickOnce) {
  Make(GetParam());
  Fill(3);
  combo_->SetListIndex(1);
  EXPECT_THAT(clicks_, ElementsAre("item 1"));
  EXPECT_EQ(combo_->ListIndex(), 1);
  EXPECT_ANY_THROW(combo_->SetListIndex(3));
  EXPECT_EQ(combo_->ListIndex(), 1);
  Settle();
  EXPECT_EQ(clicks_.size(), 1U);
}

TEST_P(ComboBoxTest, DownAndUpWalkTheList) {
  Make(GetParam());
  Fill(3);
  Press(GDK_KEY_Down);
  Press(GDK_KEY_Down);
  Press(GDK_KEY_Up);
  Settle();
  EXPECT_THAT(clicks_, ElementsAre("item 0", "item 1", "item 0"));
  EXPECT_EQ(combo_->ListIndex(), 0);
  EXPECT_EQ(combo_->Text(), "item 0");
}

TEST_P(ComboBoxTest, TheEndsOfTheListAreTheEnds) {
  Make(GetParam());
  Fill(2);
  combo_->SetListIndex(1);
  Press(GDK_KEY_Down);
  EXPECT_EQ(combo_->ListIndex(), 1);
  EXPECT_EQ(clicks_.size(), 1U);
}

TEST_P(ComboBoxTest, KeysMoveTheCaretInTheField) {
  Make(GetParam());
  Fill(2);
  combo_->SetListIndex(1);
  Press(GDK_KEY_End);
  EXPECT_EQ(combo_->SelStart(), 6);
  Press(GDK_KEY_Home);
  EXPECT_EQ(combo_->SelStart(), 0);
  Press(GDK_KEY_Right);
  EXPECT_EQ(combo_->SelStart(), 1);
  EXPECT_EQ(clicks_.size(), 1U);
}

TEST_P(ComboBoxTest, EntriesAreShownOnOneLine) {
  Make(GetParam());
  combo_->AddItem("two\r\nlines");
  combo_->SetListIndex(0);
  EXPECT_EQ(combo_->List(0), "two\r\nlines");
  EXPECT_EQ(combo_->Text(), "two lines");
}

TEST_P(ComboBoxTest, InvalidTextIsShownWithReplacementCharacters) {
  Make(GetParam());
  combo_->AddItem("a\xFF");
  combo_->SetListIndex(0);
  EXPECT_EQ(combo_->Text(), "a\xEF\xBF\xBD");
}

TEST_P(ComboBoxTest, ClearEmptiesListAndField) {
  Make(GetParam());
  Fill(10);
  combo_->SetListIndex(5);
  combo_->Clear();
  EXPECT_EQ(combo_->ListCount(), 0);
  EXPECT_EQ(combo_->ListIndex(), -1);
  EXPECT_EQ(combo_->Text(), "");
  EXPECT_EQ(clicks_.size(), 1U);
  Fill(1);
  Press(GDK_KEY_Down);
  EXPECT_EQ(combo_->Text(), "item 0");
}

TEST_P(ComboBoxTest, FiftyThousandEntriesCanBeAddedAndWalked) {
  Make(GetParam());
  Fill(50000);
  combo_->SetListIndex(49999);
  EXPECT_EQ(combo_->Text(), "item 49999");
  Settle();
  Press(GDK_KEY_Up);
  EXPECT_EQ(combo_->Text(), "item 49998");
  combo_->Clear();
  EXPECT_EQ(combo_->ListCount(), 0);
}

TEST_P(ComboBoxTest, IsOneTabStopWithAnAccessibleName) {
  Make(GetParam());
  Fill(3);
  const auto second = ComboBoxControl::Create("next", ComboBox::Style::DropDown, windows_);
  window_.frame.Add(*second);
  Settle();
  auto* field = window_.form.window().get_focus();
  ASSERT_NE(field, nullptr);
  EXPECT_TRUE(GTK_IS_ENTRY(field->gobj()));
  EXPECT_EQ(field->get_accessible()->get_name(), "Links");
  Press(GDK_KEY_Tab);
  EXPECT_TRUE(window_.form.window().get_focus()->is_ancestor(second->widget()));
  EXPECT_TRUE(GTK_IS_ENTRY(window_.form.window().get_focus()->gobj()));
}

INSTANTIATE_TEST_SUITE_P(Styles, ComboBoxTest,
                         testing::Values(ComboBox::Style::DropDown, ComboBox::Style::Simple),
                         [](const auto& style) {
                           return style.param == ComboBox::Style::Simple ? "Simple" : "DropDown";
                         });

class SimpleComboTest : public ComboBoxTest {};

TEST_F(SimpleComboTest, ALetterLeadsToTheNextLineThatBeginsWithIt) {
  Make(ComboBox::Style::Simple);
  for (const char* line :
       {"3 lines", "The news", "https://www.weather.org/", "the \xC3\x84nd", "\xC3\x84pfel"}) {
    combo_->AddItem(line);
  }
  Press('t');
  Press('T', GDK_SHIFT_MASK);
  Press('t');
  Press('w');
  Press(GDK_KEY_adiaeresis);
  EXPECT_THAT(clicks_, ElementsAre("The news", "the \xC3\x84nd", "The news",
                                   "https://www.weather.org/", "\xC3\x84pfel"));
  Press(GDK_KEY_Up);
  EXPECT_EQ(combo_->ListIndex(), 3) << "the arrows go on from there";
}

TEST_F(SimpleComboTest, WhoLooksInVainHearsWhereHeIs) {
  Make(ComboBox::Style::Simple);
  Fill(3);
  combo_->SetListIndex(1);
  Press('x');
  EXPECT_THAT(clicks_, ElementsAre("item 1", "item 1"));
  EXPECT_EQ(combo_->ListIndex(), 1);
}

TEST_F(SimpleComboTest, NothingChangesTheLine) {
  Make(ComboBox::Style::Simple);
  Fill(3);
  combo_->SetListIndex(1);
  Press(GDK_KEY_End);
  Press(GDK_KEY_BackSpace);
  Press(GDK_KEY_Home);
  Press(GDK_KEY_Delete);
  Press(GDK_KEY_space);
  EXPECT_EQ(combo_->Text(), "item 1");
  EXPECT_EQ(combo_->ListIndex(), 1);
}

TEST_F(SimpleComboTest, PageKeysWalkByWhatIsSeen) {
  Make(ComboBox::Style::Simple);
  Fill(1000);
  combo_->SetListIndex(0);
  Settle();
  Press(GDK_KEY_Page_Down);
  const int page = combo_->ListIndex();
  EXPECT_GT(page, 1);
  EXPECT_LT(page, 100);
  Press(GDK_KEY_Page_Up);
  EXPECT_EQ(combo_->ListIndex(), 0);
  combo_->SetListIndex(998);
  Press(GDK_KEY_Page_Down);
  EXPECT_EQ(combo_->ListIndex(), 999);
}

TEST_F(SimpleComboTest, TheFieldTellsWhichListItControls) {
  Make(ComboBox::Style::Simple);
  auto* field = window_.form.window().get_focus();
  auto* relations = atk_object_ref_relation_set(gtk_widget_get_accessible(field->gobj()));
  EXPECT_TRUE(atk_relation_set_contains(relations, ATK_RELATION_CONTROLLER_FOR));
  g_object_unref(relations);
}

TEST_F(SimpleComboTest, AClickOnALineSelectsItAndADoubleClickIsTold) {
  Make(ComboBox::Style::Simple);
  Fill(5);
  Settle();
  auto* list = FindList(combo_->widget());
  ASSERT_NE(list, nullptr);
  Gdk::Rectangle row;
  list->get_cell_area(Gtk::TreePath("3"), *list->get_column(0), row);
  int x = 0;
  int y = 0;
  list->get_bin_window()->get_origin(x, y);
  Outside({"xdotool", "mousemove", std::to_string(x + 10),
           std::to_string(y + row.get_y() + row.get_height() / 2), "click", "1"});
  WaitFor("the line", [&] { return combo_->ListIndex() == 3; });
  EXPECT_THAT(clicks_, ElementsAre("item 3"));
  EXPECT_EQ(double_clicks_, 0);
  Outside({"xdotool", "click", "--repeat", "2", "--delay", "30", "1"});
  WaitFor("the double click", [&] { return double_clicks_ == 1; });
  EXPECT_EQ(clicks_.size(), 1U);
  EXPECT_TRUE(GTK_IS_ENTRY(window_.form.window().get_focus()->gobj()))
      << "the field keeps the focus";
}

class DropDownComboTest : public ComboBoxTest {
 protected:
  bool Open() const {
    gboolean shown = FALSE;
    g_object_get(const_cast<ComboBoxControl&>(*combo_).widget().gobj(), "popup-shown", &shown,
                 nullptr);
    return shown != FALSE;
  }
  bool FieldHasFocus() {
    const auto* focus = window_.form.window().get_focus();
    return focus != nullptr && focus->has_focus();
  }
};

TEST_F(DropDownComboTest, UpAndDownGoOnFromTheEntryWhoseTextIsShown) {
  Make(ComboBox::Style::DropDown);
  Fill(3);
  combo_->SetText("item 1");
  Settle();
  EXPECT_TRUE(clicks_.empty());
  EXPECT_EQ(combo_->ListIndex(), -1);
  Press(GDK_KEY_Down);
  EXPECT_THAT(clicks_, ElementsAre("item 2"));
  combo_->SetText("item 1");
  Press(GDK_KEY_Up);
  EXPECT_THAT(clicks_, ElementsAre("item 2", "item 0"));
}

TEST_F(DropDownComboTest, TypingEditsTheFieldAndLeavesTheListAlone) {
  Make(ComboBox::Style::DropDown);
  Fill(2);
  combo_->SetListIndex(1);
  combo_->SetSelStart(6);
  Press('x');
  EXPECT_EQ(combo_->Text(), "item 1x");
  EXPECT_EQ(combo_->ListIndex(), -1);
}

TEST_F(DropDownComboTest, WhatReplacesASelectedTextIsSelectedToo) {
  Make(ComboBox::Style::DropDown);
  combo_->SetText("old");
  combo_->SetFocus();
  combo_->SetText("new address");
  Press('x');
  EXPECT_EQ(combo_->Text(), "x");
  combo_->SetText("y");
  Press('x');
  EXPECT_EQ(combo_->Text(), "xy") << "nothing was selected";
}

TEST_F(DropDownComboTest, TheOpenListTellsWhereItsCursorIs) {
  Make(ComboBox::Style::DropDown);
  for (const char* address : {"http://a.org/", "https://www.b.org/", "http://c.org/"}) {
    combo_->AddItem(address);
  }
  std::vector<std::string> heard;
  int focused = 0;
  listening_ +=
      combo_->Highlight.Connect([&](const std::string& entry) { heard.push_back(entry); });
  listening_ += combo_->GotFocus.Connect([&] { ++focused; });
  const auto press = [&](const char* key) {
    const auto before = heard.size();
    Outside({"xdotool", "key", key});
    WaitFor("an entry", [&] { return heard.size() > before; });
  };
  for (const char* key : {"F4", "Down", "Down", "b", "x"}) press(key);
  EXPECT_THAT(heard, ElementsAre("http://a.org/", "https://www.b.org/", "http://c.org/",
                                 "https://www.b.org/", "https://www.b.org/"));
  EXPECT_THAT(clicks_, testing::IsEmpty());
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the field's name", [&] { return focused > 0; });
  Settle();
  EXPECT_EQ(focused, 1);
}

TEST_F(DropDownComboTest, AChoiceFromTheOpenListIsToldOnce) {
  Make(ComboBox::Style::DropDown);
  Fill(3);
  int highlights = 0;
  int focused = 0;
  listening_ += combo_->Highlight.Connect([&](const std::string&) { ++highlights; });
  listening_ += combo_->GotFocus.Connect([&] { ++focused; });
  for (const int times : {1, 2}) {
    highlights = 0;
    Outside({"xdotool", "key", "F4"});
    WaitFor("the open list", [&] { return highlights > 0; });
    Settle();
    EXPECT_EQ(highlights, 1) << "where its cursor is";
    Outside({"xdotool", "key", times == 1 ? "Down" : "Up", "Return"});
    WaitFor("the choice", [&] { return std::ssize(clicks_) == times && !Open(); });
    Settle();
    WaitFor("the field", [&] { return FieldHasFocus(); });
    EXPECT_EQ(focused, 0) << "the choice says itself";
  }
}

TEST_F(DropDownComboTest, AltDownAndF4OpenTheListAndEscapeClosesIt) {
  Make(ComboBox::Style::DropDown);
  Fill(5);
  Outside({"xdotool", "key", "alt+Down"});
  WaitFor("the list", [&] { return Open(); });
  Outside({"xdotool", "key", "Escape"});
  WaitFor("the list to close", [&] { return !Open(); });
  Outside({"xdotool", "key", "F4"});
  WaitFor("the list again", [&] { return Open(); });
  Outside({"xdotool", "key", "Down", "Down", "Return"});
  WaitFor("the list to close", [&] { return !Open(); });
  EXPECT_EQ(clicks_.size(), 1U);
  EXPECT_EQ(combo_->Text(), combo_->List(combo_->ListIndex()));
}

}  // namespace
}  // namespace corvane::desktop
