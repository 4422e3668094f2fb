#include "tests/unit/explorer_fixture.h"

namespace corvane::tests {
namespace {

TEST_F(Explorer, ClickLetsTheItemShowItsItems) {
  auto item = Leaf("item");
  tree.Click(Show(item));
  EXPECT_EQ(item->shown, 1);
}

TEST_F(Explorer, DeleteKeyRemovesOnlyWhenAllowed) {
  auto item = Leaf("item");
  FakeTreeNode& node = Show(item);
  tree.selected = &node;
  tree.Press(kKeyDelete);
  EXPECT_EQ(item->deleted, 0);
  explorer.AllowDelete = true;
  tree.Press(kKeyTab);
  EXPECT_EQ(item->deleted, 0);
  tree.Press(kKeyDelete);
  EXPECT_EQ(item->deleted, 1);
  EXPECT_TRUE(tree.nodes.empty());
  EXPECT_EQ(explorer.m_ItemCount(), 0U);
  tree.Press(kKeyDelete);  // nothing is selected any more
}

TEST_F(Explorer, ItemThatRefusesToGoStays) {
  auto item = Leaf("item");
  item->refuses_delete = true;
  explorer.RemoveNode(Show(item));
  EXPECT_EQ(tree.nodes.size(), 1U);
  EXPECT_EQ(explorer.m_ItemCount(), 1U);
}

TEST_F(Explorer, LastRecordTakesThePlaceOfTheRemovedOne) {
  CExplorer::NodeOptions options;
  options.Data = "same";
  TreeNode& first = explorer.AddNode("first", options);
  options.Data = "other";
  explorer.AddNode("second", options);
  options.Data = "same";
  TreeNode& third = explorer.AddNode("third", options);
  explorer.RemoveNode(first);
  EXPECT_EQ(explorer.m_ItemCount(), 2U);
  CExplorer::NodeOptions below;
  below.Parent = "same";
  explorer.AddNode("child", below);
  EXPECT_EQ(third.Children(), 1U);
}

TEST_F(Explorer, RecordsOfDescendantsStayButAreNoOnesAnyMore) {
  auto child = Branch("child", {});
  FakeTreeNode& node = Open(Branch("root", {child}));
  explorer.RemoveNode(node);
  EXPECT_EQ(explorer.m_ItemCount(), 1U);
  CExplorer::NodeOptions below;
  below.Parent = std::shared_ptr<IExplorerItem>(child);
  EXPECT_THROW(explorer.AddNode("grandchild", below), RunTimeError);
}

TEST_F(Explorer, LabelsAreEditedOnlyWhenAllowed) {
  auto item = Leaf("old");
  tree.selected = &Show(item);
  EXPECT_EQ(tree.label_edit, TreeView::LabelEdit::Manual);
  tree.StartLabelEdit();
  EXPECT_FALSE(tree.editing);
  explorer.AllowRename = true;
  tree.StartLabelEdit();
  tree.EditLabel("new");
  EXPECT_EQ(item->text, "new");
  EXPECT_EQ(tree.nodes[0]->text, "new");
}

TEST_F(Explorer, ItemThatKeepsItsNameKeepsTheLabel) {
  auto item = Leaf("old");
  item->keeps_name = true;
  tree.selected = &Show(item);
  explorer.AllowRename = true;
  tree.StartLabelEdit();
  tree.EditLabel("new");
  EXPECT_EQ(tree.nodes[0]->text, "old");
}

TEST_F(Explorer, HostDecidesAboutTheNameOfPlainData) {
  explorer.AllowRename = true;
  std::string asked;
  const auto listening =
      explorer.RenameNode.Connect([&](const ExplorerData&, const std::string& name, bool& cancel) {
        asked = name;
        cancel = name == "bad";
      });
  CExplorer::NodeOptions options;
  options.Data = "value";
  tree.selected = &explorer.AddNode("old", options);
  tree.StartLabelEdit();
  tree.EditLabel("bad");
  EXPECT_EQ(tree.nodes[0]->text, "old");
  tree.StartLabelEdit();
  tree.EditLabel("good");
  EXPECT_EQ(tree.nodes[0]->text, "good");
  EXPECT_EQ(asked, "good");
}

TEST_F(Explorer, FirstNodeOfAPathIsFound) {
  FakeTreeNode& node = Open(Branch("root", {Leaf("twin"), Leaf("Twin"), Leaf("twin")}));
  EXPECT_EQ(explorer.GetNodeFromPath("root\\twin"), &node[0]);
  EXPECT_EQ(explorer.GetNodeFromPath("root\\Twin"), &node[1]);
  EXPECT_EQ(explorer.GetNodeFromPath("twin"), nullptr);
  explorer.ClearNodes();
  EXPECT_EQ(explorer.GetNodeFromPath("root"), nullptr);
}

TEST_F(Explorer, NodeAddedEarlierIsFirstWhereverItStands) {
  CExplorer::NodeOptions options;
  options.Data = "a";
  explorer.AddNode("same", options);
  options.Data = "b";
  explorer.AddNode("same", options);
  CExplorer::NodeOptions below;
  below.Parent = "b";
  TreeNode& early = explorer.AddNode("child", below);
  below.Parent = "a";
  explorer.AddNode("child", below);
  EXPECT_EQ(explorer.GetNodeFromPath("same\\child"), &early);
}

}  // namespace
}  // namespace corvane::tests
