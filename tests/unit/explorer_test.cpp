#include "explorer/WaitingItem.h"
#include "tests/unit/explorer_fixture.h"

namespace corvane::tests {
namespace {

TEST_F(Explorer, NodeHasAPlaceholderUntilItIsOpened) {
  auto root = Branch("root", {Leaf("a"), Leaf("b")});
  FakeTreeNode& node = Show(root);
  EXPECT_THAT(node.Labels(), ElementsAre("dummy99999999"));
  EXPECT_EQ(root->built, 0);
  tree.Toggle(node);
  EXPECT_THAT(node.Labels(), ElementsAre("a", "b"));
  EXPECT_EQ(explorer.Root(), root);
}

TEST_F(Explorer, OpeningTwiceAsksForChildrenOnce) {
  auto root = Branch("root", {Leaf("a")});
  FakeTreeNode& node = Open(root);
  tree.Toggle(node);
  root->children.push_back(Leaf("later"));
  tree.Toggle(node);
  EXPECT_EQ(root->built, 1);
  EXPECT_THAT(node.Labels(), ElementsAre("a"));
}

TEST_F(Explorer, EmptyCollectionLeavesNeitherChildrenNorPlaceholder) {
  EXPECT_THAT(Open(Branch("root", {})).Labels(), IsEmpty());
}

TEST_F(Explorer, ItemThatFailsLeavesNoChildrenAndTheTreeUnlocked) {
  auto root = Branch("root", {Leaf("a")});
  root->while_building = [] { throw RunTimeError(kErrDeviceIo, "", "broken"); };
  EXPECT_THAT(Open(root).Labels(), IsEmpty());
  EXPECT_EQ(tree.locks, 0);
}

TEST_F(Explorer, ChildThatFailsCostsItsSiblingsNothing) {
  const auto broken = Leaf("broken");
  broken->fails = true;
  const FakeTreeNode& root = Open(Branch("root", {Leaf("a"), broken, Leaf("b")}));
  EXPECT_THAT(root.Labels(), ElementsAre("a", "b"));
  EXPECT_EQ(tree.locks, 0);
}

TEST_F(Explorer, ChildTakesTextPictureAndTagFromItsItem) {
  auto child = Leaf("child");
  child->icon = 2;
  child->data = "http://a/";
  FakeTreeNode& node = Open(Branch("root", {child}));
  EXPECT_EQ(node[0].image, 2);
  EXPECT_EQ(node[0].selected_image, 2);
  EXPECT_EQ(node[0].tag, "http://a/");
  EXPECT_EQ(node.tag, "") << "a root has no tag";
}

TEST_F(Explorer, PictureThatIsNotInTheListCostsOnlyThePicture) {
  auto child = Leaf("child");
  child->icon = 99;
  auto root = Branch("root", {child});
  root->icon = 77;
  FakeTreeNode& node = Open(root);
  EXPECT_EQ(node.text, "root");
  EXPECT_EQ(node.image, 0);
  EXPECT_THAT(node.Labels(), ElementsAre("child"));
}

TEST_F(Explorer, NodesWithoutAPictureGetTheDefaults) {
  explorer.Init(tree, nullptr, 1, 2, 0);
  EXPECT_EQ(static_cast<FakeTreeNode&>(explorer.AddNode("plain", {})).image, 1);
  EXPECT_EQ(static_cast<FakeTreeNode&>(explorer.AddNode("plain", {})).selected_image, 1)
      << "an image that is given or defaulted serves as the selected one too";
  CExplorer::NodeOptions options;
  options.SelectedImage = 2;
  EXPECT_EQ(static_cast<FakeTreeNode&>(explorer.AddNode("both", options)).selected_image, 2);
}

TEST_F(Explorer, TreeIsLockedWhileChildrenAreAdded) {
  int locks = -1;
  auto root = Branch("root", Leaves(64));
  root->while_building = [&] { locks = tree.locks; };
  int while_adding = -1;
  desktop.on_yield = [&] { while_adding = tree.locks; };
  Open(root);
  EXPECT_EQ(locks, 1);
  EXPECT_EQ(while_adding, 1);
  EXPECT_EQ(tree.locks, 0);
}

TEST_F(Explorer, TreeReplacedWhileChildrenAreMadeKeepsTheNewOne) {
  auto root = Branch("old", {Leaf("a")});
  root->while_building = [&] { explorer.SetRoot(Leaf("new")); };
  explorer.SetRoot(root);
  tree.nodes[0]->SetExpanded(true);
  ASSERT_EQ(tree.nodes.size(), 1U);
  EXPECT_EQ(tree.nodes[0]->text, "new");
  EXPECT_THAT(tree.nodes[0]->Labels(), IsEmpty());
  EXPECT_EQ(tree.locks, 0);
}

TEST_F(Explorer, TreeReplacedBetweenTwoChildrenKeepsTheNewOne) {
  explorer.SetRoot(Branch("old", Leaves(200)));
  desktop.on_yield = [&, n = 0]() mutable {
    if (++n == 2) explorer.SetRoot(Leaf("new"));
  };
  tree.nodes[0]->SetExpanded(true);
  EXPECT_EQ(explorer.m_ItemCount(), 1U);
  EXPECT_EQ(tree.nodes[0]->text, "new");
}

TEST_F(Explorer, ChildrenThatComeLaterStandBehindTheFirst) {
  FakeTreeNode& node = Open(Branch("root", {Leaf("a")}));
  explorer.AddMoreChildren(node.Id(), {Leaf("b"), Branch("c", {Leaf("d")})});
  EXPECT_THAT(node.Labels(), ElementsAre("a", "b", "c"));
  EXPECT_EQ(node.children.at(2)->Labels().size(), 1U) << "it can be opened";
  explorer.AddMoreChildren(TreeNodeId{987654}, {Leaf("lost")});
  EXPECT_EQ(tree.Nodes().size(), 5U);
}

TEST_F(Explorer, WhatStoodForChildrenGoesWhenTheyComeAndTheUserOnItGoesToTheFirst) {
  FakeTreeNode& node = Open(Branch("root", {std::make_shared<WaitingItem>()}));
  EXPECT_THAT(node.Labels(), ElementsAre("Working..."));
  tree.SetSelectedItem(node.children.at(0).get());
  std::vector<std::string> clicked;
  const auto listening =
      tree.NodeClick.Connect([&](TreeNode& each) { clicked.push_back(each.Text()); });
  explorer.AddMoreChildren(node.Id(), {Leaf("a"), Leaf("b")});
  EXPECT_THAT(clicked, ElementsAre("a")) << "the user hears it";
  EXPECT_THAT(node.Labels(), ElementsAre("a", "b"));
  EXPECT_EQ(tree.SelectedItem(), node.children.at(0).get());
  EXPECT_EQ(explorer.m_ItemCount(), 3U);
}

TEST_F(Explorer, NothingStandsForChildrenThatNeverCame) {
  FakeTreeNode& node = Open(Branch("root", {std::make_shared<WaitingItem>()}));
  explorer.AddMoreChildren(node.Id(), {});
  EXPECT_THAT(node.Labels(), IsEmpty());
}

TEST_F(Explorer, ExtraRootsStandBesideTheRoot) {
  explorer.SetRoot(Leaf("first"));
  explorer.AddExtraRoot(Branch("second", {}));
  ASSERT_EQ(tree.nodes.size(), 2U);
  EXPECT_THAT(tree.nodes[1]->Labels(), ElementsAre("dummy99999999"));
  explorer.SetRoot(Leaf("third"));
  EXPECT_EQ(tree.nodes.size(), 1U);
  EXPECT_EQ(explorer.m_ItemCount(), 1U);
}

// Plain data --------------------------------------------------------------------

TEST_F(Explorer, PlainDataGoesToTheHost) {
  std::vector<std::string> asked;
  Connections listening;
  listening += explorer.GetChildren.Connect([&](const ExplorerData& data) {
    asked.push_back("children " + std::get<std::string>(data));
  });
  listening += explorer.GetItems.Connect(
      [&](const ExplorerData& data) { asked.push_back("items " + std::get<std::string>(data)); });
  CExplorer::NodeOptions options;
  options.Data = "value";
  options.HasChildren = true;
  TreeNode& node = explorer.AddNode("plain", options);
  tree.Toggle(node);
  tree.Click(node);
  EXPECT_THAT(asked, ElementsAre("children value", "items value"));
  EXPECT_EQ(node.Children(), 0U);
}

TEST_F(Explorer, NodesAreAddedBelowTheFirstNodeOfThatData) {
  CExplorer::NodeOptions options;
  options.Data = "twice";
  options.HasChildren = true;
  auto& first = static_cast<FakeTreeNode&>(explorer.AddNode("first", options));
  auto& second = static_cast<FakeTreeNode&>(explorer.AddNode("second", options));
  CExplorer::NodeOptions below;
  below.Parent = "twice";
  below.TVItemData = "tag";
  EXPECT_EQ(explorer.AddNode("child", below).Tag(), "tag");
  EXPECT_THAT(first.Labels(), ElementsAre("child")) << "in the place of the placeholder";
  EXPECT_THAT(second.Labels(), ElementsAre("dummy99999999"));
}

TEST_F(Explorer, ParentThatNoNodeStandsForIsAnError) {
  CExplorer::NodeOptions below;
  below.Parent = "nobody";
  EXPECT_THROW(explorer.AddNode("child", below), RunTimeError);
}

TEST_F(Explorer, NodeWithoutDataHasNoRecord) {
  TreeNode& node = explorer.AddNode("plain", {});
  EXPECT_EQ(explorer.m_ItemCount(), 0U);
  EXPECT_EQ(explorer.GetItemObject(node), nullptr);
  EXPECT_THROW(explorer.ItemData(node), RunTimeError);
  tree.Click(node);
  tree.Toggle(node);
  explorer.RemoveNode(node);
  EXPECT_EQ(tree.nodes.size(), 1U);
}

TEST_F(Explorer, DataCanBeReadAndReplaced) {
  auto item = Leaf("item");
  FakeTreeNode& node = Show(item);
  EXPECT_EQ(explorer.GetItemObject(node), item);
  explorer.SetItemData(node, 5.0);
  EXPECT_EQ(explorer.ItemData(node), ExplorerData(5.0));
  EXPECT_EQ(explorer.GetItemObject(node), nullptr);
  explorer.RemoveNode(ExplorerData(5.0));
  EXPECT_TRUE(tree.nodes.empty());
}

TEST_F(Explorer, LongLabelIsSeveralNodesOfOneItem) {
  auto item = Branch(std::string(300, 'x'), {Leaf("inner")});
  item->icon = 1;
  FakeTreeNode& node = Open(Branch("root", {item}));
  ASSERT_EQ(node.Children(), 3U);
  EXPECT_EQ(node[0].text.size(), 125U);
  EXPECT_EQ(node[0].Children(), 1U) << "only the first piece can be opened";
  EXPECT_EQ(node[1].Children(), 0U);
  EXPECT_EQ(node[2].image, 1);
  EXPECT_EQ(explorer.GetItemObject(node[2]), item);
  tree.Toggle(node[0]);
  EXPECT_THAT(node[0].Labels(), ElementsAre("inner"));
}

}  // namespace
}  // namespace corvane::tests
