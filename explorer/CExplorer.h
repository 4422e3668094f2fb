#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "base/event.h"
#include "explorer/IExplorerItem.h"
#include "explorer/RecordTable.h"
#include "platform/desktop.h"
#include "platform/list_view.h"

namespace corvane {

/// Stands between a tree (and a list, where there is one) and the items that it
/// shows: makes nodes when they are first opened, keeps what each node stands
/// for and turns the tree's events into calls on the items. Data that is no item
/// goes to the host through the events below.
class CExplorer {
 public:
  explicit CExplorer(Desktop& desktop) : desktop_(desktop) {}
  CExplorer(const CExplorer&) = delete;
  CExplorer& operator=(const CExplorer&) = delete;

  /// Takes the controls, which must outlive this; the list may be null. The
  /// images are those of nodes and list items that come without one.
  void Init(TreeView& Tree, ListView* List, int Image, int SelectedImage, int ItemImage);

  const std::shared_ptr<IExplorerItem>& Root() const { return m_Root; }
  /// Clears the tree and shows the item.
  void SetRoot(std::shared_ptr<IExplorerItem> Item);
  /// Adds the item at the top, beside what is there.
  void AddExtraRoot(const std::shared_ptr<IExplorerItem>& Item);
  void ClearNodes();

  /// What AddNode takes beside the text.
  struct NodeOptions {
    ExplorerData Data;  ///< what the node stands for; without it the node has no record
    bool HasChildren = false;
    ExplorerData Parent;  ///< the data of the node above; empty at the top
    int Image = 0;
    int SelectedImage = 0;
    std::string TVItemData;  ///< the node's tag
  };
  /// Adds a node. A picture that the tree does not have costs the picture, not
  /// the node. RunTimeError when no node stands for the parent.
  TreeNode& AddNode(const std::string& Text, const NodeOptions& options);
  /// Adds to the children of a node that has been opened, which may be gone. What only
  /// stood for them (WaitingItem) goes.
  void AddMoreChildren(TreeNodeId node, const ExplorerItems& items);
  /// Asks the node's item to delete itself and, unless it refuses, removes the
  /// node. A node without a record stays.
  void RemoveNode(TreeNode& Node);
  /// The same for the first node that stands for a plain value.
  void RemoveNode(const ExplorerData& Value);

  /// What a node stands for; RunTimeError when it has no record.
  const ExplorerData& ItemData(const TreeNode& Item) const;
  void SetItemData(const TreeNode& Item, ExplorerData Value);
  /// The first node, in the order of adding, with exactly that path of labels.
  TreeNode* GetNodeFromPath(const std::string& FullPath) const;
  /// The node's item; null when it has none.
  std::shared_ptr<IExplorerItem> GetItemObject(const TreeNode& Item) const;

  void ClearItems();
  ListItem& AddItem(const std::string& Text, const std::vector<std::string>& subitems);
  void RemoveItem(int Index);
  /// Captions and widths in turn. A last caption without a width gets what the
  /// list has left.
  void SetColumns(const std::vector<std::variant<std::string, float>>& args);

  std::size_t m_ItemCount() const { return m_Items.Count(); }

  bool AllowRename = false;  ///< the user may edit labels
  bool AllowDelete = false;  ///< the Delete key removes the selected node

  Event<const ExplorerData&> GetChildren;
  Event<const ExplorerData&> GetItems;
  Event<const ExplorerData&, const std::string&, bool&> RenameNode;

 private:
  void TV_Expand(TreeNode& Node);
  void TV_KeyDown(int KeyCode);
  void TV_BeforeLabelEdit(bool& Cancel) const;
  void TV_AfterLabelEdit(bool& Cancel, const std::string& NewString);
  void TV_NodeClick(const TreeNode& Node);

  std::size_t FindItemByNode(const TreeNode& node) const { return m_Items.FindByNode(node.Id()); }
  std::size_t FindItemByData(const ExplorerData& data) const { return m_Items.FindByData(data); }
  void Remove(TreeNode* node, std::size_t record);
  TreeNode& AddWithImages(TreeNode* parent, const std::string& text, int image, int selected);
  void AddDummyChild(TreeNode& node);
  void AddChildren(TreeNodeId node, const ExplorerData& parent, const ExplorerItems& items);
  void AddChild(const ExplorerData& parent, const std::shared_ptr<IExplorerItem>& item);

  Desktop& desktop_;
  TreeView* tree_ = nullptr;
  ListView* list_ = nullptr;
  int m_Image = 0;
  int m_SelectedImage = 0;
  int m_ItemImage = 0;
  std::shared_ptr<IExplorerItem> m_Root;
  RecordTable m_Items;
  Connections connections_;
};

}  // namespace corvane
