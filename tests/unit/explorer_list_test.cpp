#include "tests/unit/explorer_fixture.h"

namespace corvane::tests {
namespace {

TEST_F(Explorer, ListItemsHaveTheirPictureAndSubItems) {
  explorer.Init(tree, &list, 0, 0, 4);
  explorer.AddItem("text", {"one", "two"});
  explorer.AddItem("other", {});
  EXPECT_EQ(list.items[0]->icon, 4);
  EXPECT_EQ(list.items[0]->small_icon, 4);
  EXPECT_THAT(list.items[0]->sub_items, ElementsAre("one", "two"));
  explorer.RemoveItem(1);
  EXPECT_EQ(list.items.size(), 1U);
  explorer.ClearItems();
  EXPECT_TRUE(list.items.empty());
}

TEST_F(Explorer, LastColumnWithoutAWidthFillsTheList) {
  list.width = 9000;
  explorer.SetColumns({std::string("Old"), 1.0F});
  explorer.SetColumns(
      {std::string("Name"), 3000.0F, std::string("Size"), 1000.0F, std::string("Rest")});
  ASSERT_EQ(list.columns.size(), 3U);
  EXPECT_EQ(list.columns[1], std::make_pair(std::string("Size"), 1000.0F));
  EXPECT_EQ(list.columns[2], std::make_pair(std::string("Rest"), 9000.0F - 3000 - 1000 - 730));
  list.width = 5000;
  explorer.SetColumns({std::string("Name"), 3000.0F, std::string("Rest")});
  EXPECT_EQ(list.columns[1].second, 2000) << "never narrower";
  list.width = 5730;
  explorer.SetColumns({std::string("Only")});
  EXPECT_EQ(list.columns[0].second, 5000);
}

TEST_F(Explorer, PaneWithoutAListHasNoneToFill) {
  explorer.Init(tree, nullptr, 0, 0, 0);
  EXPECT_THROW(explorer.ClearItems(), RunTimeError);
}

}  // namespace
}  // namespace corvane::tests
