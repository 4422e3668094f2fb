#include "explorer/CExplorer.h"

#include "explorer/LabelPieces.h"
#include "tests/unit/program.h"

namespace corvane::tests {
namespace {

/// An item that a test scripts.
class TestItem : public IExplorerItem {
 public:
  explicit TestItem(std::string label) : text(std::move(label)) {}

  std::string text;
  std::string data;
  int icon = 0;
  bool has_children = false;
  bool keeps_name = false;
  bool refuses_delete = false;
  ExplorerItems children;
  std::function<void()> while_building;
  int built = 0;
  int shown = 0;
  int deleted = 0;

 private:
  std::string IExplorerItem_Text() const override { return text; }
  void IExplorerItem_SetText(const std::string& Value) override {
    if (!keeps_name) text = Value;
  }
  std::string IExplorerItem_ItemData() const override { return data; }
  void IExplorerItem_SetItemData(const std::string& Value) override { data = Value; }
  int IExplorerItem_IconIndex() const override { return icon; }
  void IExplorerItem_SetIconIndex(int Value) override { icon = Value; }
  bool IExplorerItem_HasChildren() const override { return has_children; }
  ExplorerItems IExplorerItem_GetChildren(CExplorer&, TreeNode&) override {
    ++built;
    if (while_building) while_building();
    return children;
  }
  void IExplorerItem_ShowItems(CExplorer&) override { ++shown; }
  void IExplorerItem_Delete() override {
    if (refuses_delete) throw RunTimeError(kErrRefused, "TestItem", "No");
    ++deleted;
  }
};

std::shared_ptr<TestItem> Leaf(const std::string& text) { return std::make_shared<TestItem>(text); }

std::shared_ptr<TestItem> Branch(const std::string& text, ExplorerItems children) {
  auto item = Leaf(text);
  item->has_children = true;
  item->children = std::move(children);
  return item;
}

struct Explorer : ::testing::Test {
  FakeDesktop desktop;
  FakeTreeView tree{desktop, "TreeView1"};
  FakeListView list{desktop, "ListView1"};
  FakeImageList images;
  CExplorer explorer{desktop};

  void SetUp() override {
    images.Add("one", nullptr);
    images.Add("two", nullptr);
    tree.SetImageList(&images);
    explorer.Init(tree, &list, 0, 0, 0);
  }
  FakeTreeNode& Show(const std::shared_ptr<TestItem>& root) {
    explorer.SetRoot(root);
    return *tree.nodes.at(0);
  }
  FakeTreeNode& Open(const std::shared_ptr<TestItem>& root) {
    FakeTreeNode& node = Show(root);
    tree.Toggle(node);
    return node;
  }
};

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
  auto root = Branch("root", {Leaf("a")});
  root->while_building = [&] { locks = tree.locks; };
  Open(root);
  EXPECT_EQ(locks, 1);
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
  explorer.SetRoot(Branch("old", {Leaf("a"), Leaf("b"), Leaf("c")}));
  desktop.on_yield = [&, n = 0]() mutable {
    if (++n == 2) explorer.SetRoot(Leaf("new"));
  };
  tree.nodes[0]->SetExpanded(true);
  EXPECT_EQ(explorer.m_ItemCount(), 1U);
  EXPECT_EQ(tree.nodes[0]->text, "new");
}

TEST_F(Explorer, WindowClosedWhileChildrenAreAddedIsSurvived) {
  FakeTreeView other(desktop, "TreeView2");
  auto own = std::make_unique<CExplorer>(desktop);
  own->Init(other, nullptr, 0, 0, 0);
  own->SetRoot(Branch("root", {Leaf("a"), Leaf("b")}));
  desktop.on_yield = [&] { own.reset(); };
  other.nodes[0]->SetExpanded(true);
  EXPECT_EQ(own, nullptr);
  EXPECT_THAT(other.nodes[0]->Labels(), IsEmpty());
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

// Clicks, keys, labels ------------------------------------------------------------

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

// Labels in pieces ------------------------------------------------------------------

TEST(LabelPieces, LabelOf125CharactersStaysWhole) {
  EXPECT_THAT(LabelPieces(std::string(125, 'x')), ElementsAre(std::string(125, 'x')));
  EXPECT_THAT(LabelPieces(""), ElementsAre(""));
}

TEST(LabelPieces, LongerLabelBreaksAtItsLastBlank) {
  std::string label(126, 'x');
  label[109] = ' ';
  EXPECT_THAT(LabelPieces(label), ElementsAre(label.substr(0, 110), label.substr(109)));
}

TEST(LabelPieces, BlankThatComesTooEarlyIsNoPlaceToBreak) {
  std::string label(126, 'x');
  label[98] = ' ';
  EXPECT_EQ(LabelPieces(label)[0].size(), 125U);
  label[99] = ' ';
  EXPECT_EQ(LabelPieces(label)[0].size(), 100U);
}

TEST(LabelPieces, EachPieceRepeatsTheCharacterBeforeIt) {
  std::string label;
  for (int i = 0; i < 300; ++i) label += static_cast<char>('a' + i % 26);
  EXPECT_THAT(LabelPieces(label),
              ElementsAre(label.substr(0, 125), label.substr(124, 125), label.substr(249)));
  EXPECT_EQ(LabelPieces(label)[2].size(), 51U);
}

TEST(LabelPieces, NothingIsShownBeyondPosition12700) {
  const auto pieces = LabelPieces(std::string(12700, 'x') + std::string(9000, 'y'));
  EXPECT_EQ(pieces.size(), 102U);
  for (const auto& piece : pieces) EXPECT_EQ(piece.find('y'), std::string::npos);
}

TEST(LabelPieces, CharactersAreNeverCutInTwo) {
  std::string label;
  for (int i = 0; i < 130; ++i) label += "ä";
  const auto pieces = LabelPieces(label);
  ASSERT_EQ(pieces.size(), 2U);
  EXPECT_EQ(text::length(pieces[0]), 125U);
  EXPECT_EQ(text::length(pieces[1]), 6U);
  EXPECT_EQ(text::valid(pieces[1]), pieces[1]);
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

// The list ---------------------------------------------------------------------------

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
