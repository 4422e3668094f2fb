#pragma once

#include "explorer/CExplorer.h"
#include "tests/unit/program.h"

namespace corvane::tests {

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
  bool fails = false;
  ExplorerItems children;
  std::function<void()> while_building;
  int built = 0;
  int shown = 0;
  int deleted = 0;

 private:
  std::string IExplorerItem_Text() const override {
    if (fails) throw RunTimeError(kErrDeviceIo, "TestItem", "No");
    return text;
  }
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

inline std::shared_ptr<TestItem> Leaf(const std::string& text) {
  return std::make_shared<TestItem>(text);
}

inline std::shared_ptr<TestItem> Branch(const std::string& text, ExplorerItems children) {
  auto item = Leaf(text);
  item->has_children = true;
  item->children = std::move(children);
  return item;
}

/// So many leaves, called by their numbers from 1.
inline ExplorerItems Leaves(int count) {
  ExplorerItems leaves;
  for (int i = 1; i <= count; ++i) leaves.push_back(Leaf(std::to_string(i)));
  return leaves;
}

/// A controller over a tree and a list that the test looks into.
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

}  // namespace corvane::tests
