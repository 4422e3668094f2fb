#include "explorer/RecordTable.h"

#include <gtest/gtest.h>

namespace corvane::tests {
namespace {

TEST(RecordTable, GrowsByFiftySlotsAndKeepsItsContents) {
  RecordTable table;
  EXPECT_EQ(table.UpperBound(), 0U) << "slot 0 alone, which is never used";
  TreeNodeId node = 0;
  const auto add = [&] {
    ++node;
    table.Add(node, std::to_string(node));
  };
  add();
  EXPECT_EQ(table.UpperBound(), 50U);
  while (table.Count() < 50) add();
  EXPECT_EQ(table.UpperBound(), 50U);
  add();
  EXPECT_EQ(table.UpperBound(), 100U);
  for (std::size_t i = 1; i <= 51; ++i) EXPECT_EQ(table.At(i).node, i);
  table.Clear();
  EXPECT_EQ(table.UpperBound(), 0U);
}

TEST(RecordTable, FirstOfEqualDataIsFoundAlsoAfterRecordsMoved) {
  RecordTable table;
  for (TreeNodeId node = 1; node <= 120; ++node) table.Add(node, std::to_string(node % 3));
  EXPECT_EQ(table.FindByData(std::string("2")), 2U);
  table.Remove(2);  // record 120, with "0", takes its number
  EXPECT_EQ(table.FindByData(std::string("2")), 5U);
  EXPECT_EQ(table.FindByData(std::string("0")), 2U);
  EXPECT_EQ(table.FindByNode(120), 2U);
  EXPECT_EQ(table.FindByNode(2), 0U);
  EXPECT_EQ(table.Count(), 119U);
  EXPECT_EQ(table.FindByData({}), 0U);
  EXPECT_EQ(table.FindByData(std::shared_ptr<IExplorerItem>()), 0U);
  EXPECT_EQ(table.FindByData(2.0), 0U) << "a number is no text";
}

}  // namespace
}  // namespace corvane::tests
