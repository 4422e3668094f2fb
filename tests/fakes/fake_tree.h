#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/image_list.h"
#include "platform/list_view.h"
#include "platform/tree_view.h"
#include "tests/fakes/fake_controls.h"

namespace corvane::fakes {

class FakeImageList : public ImageList {
 public:
  struct Image {
    std::string key;
    std::string tag;
    std::shared_ptr<Picture> picture;
  };
  int Count() const override { return static_cast<int>(images.size()); }
  std::string Key(int index) const override { return At(index).key; }
  std::string Tag(int index) const override { return At(index).tag; }
  void SetTag(int index, const std::string& tag) override {
    images.at(static_cast<std::size_t>(index) - 1).tag = tag;
  }
  int Add(const std::string& key, std::shared_ptr<Picture> picture) override {
    images.push_back({key, "", std::move(picture)});
    return Count();
  }
  int Add(const std::string& key, StockImage) override { return Add(key, nullptr); }

  std::vector<Image> images;

 private:
  const Image& At(int index) const { return images.at(static_cast<std::size_t>(index) - 1); }
};

class FakeTreeView;

class FakeTreeNode : public TreeNode {
 public:
  explicit FakeTreeNode(FakeTreeView& view) : tree(view) {}
  TreeNodeId Id() const override { return id; }
  std::string Text() const override { return text; }
  std::string Tag() const override { return tag; }
  void SetTag(const std::string& value) override { tag = value; }
  TreeNode* Parent() const override { return parent; }
  std::size_t Children() const override { return children.size(); }
  TreeNode& Child(std::size_t index) const override { return *children.at(index); }
  bool Expanded() const override { return expanded; }
  void SetExpanded(bool value) override;

  /// The children's labels.
  std::vector<std::string> Labels() const {
    std::vector<std::string> labels;
    for (const auto& child : children) labels.push_back(child->text);
    return labels;
  }
  FakeTreeNode& operator[](std::size_t index) const { return *children.at(index); }

  FakeTreeView& tree;
  TreeNodeId id = 0;
  std::string text;
  std::string tag;
  int image = 0;
  int selected_image = 0;
  bool expanded = false;
  FakeTreeNode* parent = nullptr;
  std::vector<std::unique_ptr<FakeTreeNode>> children;
};

/// A tree without a screen. What the user does to it: Click, Toggle, DoubleClick,
/// Press, and EditLabel after StartLabelEdit.
class FakeTreeView : public FakeControl<TreeView> {
 public:
  using FakeControl::FakeControl;
  using TreeView::Add;
  TreeNode& Add(TreeNode* parent, const std::string& text, int image, int selected_image) override {
    const int known = images == nullptr ? 0 : images->Count();
    for (const int index : {image, selected_image}) {
      if (index < 0 || index > known) throw RunTimeError(35601, "TreeView", "Element not found");
    }
    auto node = std::make_unique<FakeTreeNode>(*this);
    static TreeNodeId last_id = 0;
    node->id = ++last_id;
    node->text = text.substr(0, text.find('\0'));
    node->image = image;
    node->selected_image = selected_image;
    node->parent = static_cast<FakeTreeNode*>(parent);
    auto& siblings = parent == nullptr ? nodes : node->parent->children;
    siblings.push_back(std::move(node));
    all.push_back(siblings.back().get());
    return *all.back();
  }
  void Remove(TreeNode& node) override {
    auto& gone = static_cast<FakeTreeNode&>(node);
    while (!gone.children.empty()) Remove(*gone.children.back());
    all.erase(std::find(all.begin(), all.end(), &gone));
    if (selected == &gone) selected = gone.parent;
    auto& siblings = gone.parent == nullptr ? nodes : gone.parent->children;
    siblings.erase(std::find_if(siblings.begin(), siblings.end(),
                                [&](const auto& other) { return other.get() == &gone; }));
  }
  void Clear() override {
    all.clear();
    selected = nullptr;
    nodes.clear();
  }
  std::vector<TreeNode*> Nodes() const override { return {all.begin(), all.end()}; }
  TreeNode* Find(TreeNodeId id) const override {
    const auto at = std::find_if(all.begin(), all.end(),
                                 [&](const FakeTreeNode* node) { return node->id == id; });
    return at == all.end() ? nullptr : *at;
  }
  TreeNode* SelectedItem() const override { return selected; }
  void SetSelectedItem(TreeNode* node) override { selected = node; }
  void SetImageList(const ImageList* list) override { images = list; }
  void SetLabelEdit(LabelEdit mode) override { label_edit = mode; }
  void StartLabelEdit() override {
    bool cancel = false;
    BeforeLabelEdit.Raise(cancel);
    editing = !cancel && selected != nullptr;
  }
  void LockUpdate(bool locked) override {
    locks += locked ? 1 : -1;
    most_locks = std::max(most_locks, locks);
  }

  /// The user selects the node.
  void Click(TreeNode& node) {
    selected = &node;
    NodeClick.Raise(node);
  }
  /// The user opens or closes the node.
  void Toggle(TreeNode& node) {
    const TreeNodeId id = node.Id();
    node.SetExpanded(!node.Expanded());
    if (TreeNode* still = Find(id)) Toggled.Raise(*still);
  }
  void DoubleClick(TreeNode& node) {
    selected = &node;
    DblClick.Raise();
  }
  /// The user ends the editing of the selected label with this text.
  void EditLabel(const std::string& text) {
    if (!std::exchange(editing, false)) return;
    bool cancel = false;
    AfterLabelEdit.Raise(cancel, text);
    if (!cancel && selected != nullptr) static_cast<FakeTreeNode*>(selected)->text = text;
  }

  std::vector<std::unique_ptr<FakeTreeNode>> nodes;
  std::vector<FakeTreeNode*> all;
  TreeNode* selected = nullptr;
  const ImageList* images = nullptr;
  LabelEdit label_edit = LabelEdit::Automatic;
  bool editing = false;
  int locks = 0;
  int most_locks = 0;
};

inline void FakeTreeNode::SetExpanded(bool value) {
  const TreeNodeId mine = id;
  FakeTreeView& view = tree;
  if (value && !expanded) {
    view.Expand.Raise(*this);
    if (view.Find(mine) == nullptr) return;
  }
  expanded = value && !children.empty();
}

class FakeListItem : public ListItem {
 public:
  std::string Text() const override { return text; }
  void SetSubItem(int index, const std::string& value) override {
    sub_items.resize(std::max(sub_items.size(), static_cast<std::size_t>(index)));
    sub_items[static_cast<std::size_t>(index) - 1] = value;
  }

  std::string text;
  int icon = 0;
  int small_icon = 0;
  std::vector<std::string> sub_items;
};

class FakeListView : public FakeControl<ListView> {
 public:
  using FakeControl::FakeControl;
  ListItem& Add(const std::string& text, int icon, int small_icon) override {
    items.push_back(std::make_unique<FakeListItem>());
    items.back()->text = text;
    items.back()->icon = icon;
    items.back()->small_icon = small_icon;
    return *items.back();
  }
  void Remove(int index) override {
    if (index < 1 || index > static_cast<int>(items.size())) {
      throw RunTimeError(35600, "ListView", "Index out of bounds");
    }
    items.erase(items.begin() + index - 1);
  }
  void ClearItems() override { items.clear(); }
  void SetImageList(const ImageList*) override {}
  int ColumnCount() const override { return static_cast<int>(columns.size()); }
  float ColumnLeft(int index) const override {
    float left = 0;
    for (int i = 0; i + 1 < index; ++i) left += columns[static_cast<std::size_t>(i)].second;
    return left;
  }
  float ColumnWidth(int index) const override {
    return columns.at(static_cast<std::size_t>(index) - 1).second;
  }
  void AddColumn(const std::string& caption, float twips) override {
    columns.emplace_back(caption, twips);
  }
  void ClearColumns() override { columns.clear(); }

  std::vector<std::unique_ptr<FakeListItem>> items;
  std::vector<std::pair<std::string, float>> columns;
};

}  // namespace corvane::fakes
