#include "platform/linux/gtk/controls/list_view.h"

#include <atk/atk.h>

#include "base/error.h"
#include "tests/platform/gtk/desktop/desktop_test.h"

namespace corvane::desktop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListViewTest : public test::DesktopTest {
 protected:
  void SetUp() override {
    DesktopTest::SetUp();
    window_.frame.Add(list_);
    window_.Show();
    Settle();
  }
  AtkTable* Table() {
    auto& view = *dynamic_cast<Gtk::ScrolledWindow&>(list_.widget()).get_child();
    return ATK_TABLE(gtk_widget_get_accessible(view.gobj()));
  }
  /// A cell with a picture holds its text as an element of its own.
  static std::string WordsOf(AtkObject* cell) {
    const char* name = atk_object_get_name(cell);
    std::string words = name != nullptr ? name : "";
    for (int i = 0; i < atk_object_get_n_accessible_children(cell); ++i) {
      AtkObject* part = atk_object_ref_accessible_child(cell, i);
      words += WordsOf(part);
      g_object_unref(part);
    }
    return words;
  }
  /// What another reader finds in a row, column by column.
  std::vector<std::string> Row(int row) {
    Settle();
    std::vector<std::string> cells;
    for (int i = 0; i < atk_table_get_n_columns(Table()); ++i) {
      AtkObject* cell = atk_table_ref_at(Table(), row, i);
      cells.push_back(WordsOf(cell));
      g_object_unref(cell);
    }
    return cells;
  }

  test::TestWindow window_{windows_, 400, 300};
  ListViewControl list_{"ListView1", windows_};
};

TEST_F(ListViewTest, ItemsAreReadInTheirColumns) {
  list_.AddColumn("Name", 3000);
  list_.AddColumn("Size", 1500);
  ListItem& item = list_.Add("report", 0, 0);
  item.SetSubItem(1, "12 KB");
  list_.Add("notes", 0, 0);
  EXPECT_EQ(item.Text(), "report");
  EXPECT_EQ(atk_table_get_n_rows(Table()), 2);
  EXPECT_THAT(Row(0), ElementsAre("report", "12 KB"));
  EXPECT_THAT(Row(1), ElementsAre("notes", ""));
}

TEST_F(ListViewTest, ColumnsLieBesideOneAnother) {
  list_.AddColumn("Name", 3000);
  list_.AddColumn("Size", 1500);
  EXPECT_EQ(list_.ColumnCount(), 2);
  EXPECT_EQ(list_.ColumnLeft(1), 0);
  EXPECT_EQ(list_.ColumnLeft(2), 3000);
  EXPECT_EQ(list_.ColumnWidth(2), 1500);
  list_.ClearColumns();
  EXPECT_EQ(list_.ColumnCount(), 0);
  list_.Add("still read", 0, 0);
  EXPECT_THAT(Row(0), ElementsAre("still read"));
}

TEST_F(ListViewTest, ItemsGoOneByOneOrAllAtOnce) {
  for (const char* text : {"one", "two", "three"}) list_.Add(text, 0, 0);
  list_.Remove(2);
  EXPECT_THAT(Row(1), ElementsAre("three"));
  EXPECT_THROW(list_.Remove(3), RunTimeError);
  EXPECT_THROW(list_.Remove(0), RunTimeError);
  list_.ClearItems();
  Settle();
  EXPECT_EQ(atk_table_get_n_rows(Table()), 0);
}

}  // namespace
}  // namespace corvane::desktop
