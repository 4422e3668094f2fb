#pragma once

#include <memory>
#include <string>
#include <vector>

namespace corvane {

class CExplorer;
class IExplorerItem;
class TreeNode;

/// Items in display order.
using ExplorerItems = std::vector<std::shared_ptr<IExplorerItem>>;

/// What a node of the side bar's tree shows: its text, picture, children and
/// actions. The tree keeps the item alive as long as the node's record lives.
/// Every operation may raise RunTimeError.
class IExplorerItem {
 public:
  IExplorerItem() = default;
  IExplorerItem(const IExplorerItem&) = delete;
  IExplorerItem& operator=(const IExplorerItem&) = delete;
  virtual ~IExplorerItem() = default;

  /// The node's label.
  std::string Text() const { return IExplorerItem_Text(); }
  /// Renames the item. It may refuse or alter the name: the caller reads Text
  /// back to see.
  void SetText(const std::string& Value) { IExplorerItem_SetText(Value); }
  /// What the node keeps as its tag: an address, a path.
  std::string ItemData() const { return IExplorerItem_ItemData(); }
  void SetItemData(const std::string& Value) { IExplorerItem_SetItemData(Value); }
  /// The picture's index in the tree's image list, counted from 1; 0 is none.
  int IconIndex() const { return IExplorerItem_IconIndex(); }
  void SetIconIndex(int Value) { IExplorerItem_SetIconIndex(Value); }
  /// Whether the node can be opened before its children are known.
  bool HasChildren() const { return IExplorerItem_HasChildren(); }
  /// The children, made now. Long work lets waiting events run between its
  /// steps, so that the tree may be another one when the call returns.
  ExplorerItems GetChildren(CExplorer& Explorer, TreeNode& Parent) {
    return IExplorerItem_GetChildren(Explorer, Parent);
  }
  /// The node was clicked: the item may fill the controller's list.
  void ShowItems(CExplorer& Explorer) { IExplorerItem_ShowItems(Explorer); }
  /// Deletes what the item stands for, or refuses by raising an error after
  /// telling the user why.
  void Delete() { IExplorerItem_Delete(); }

 private:
  virtual std::string IExplorerItem_Text() const = 0;
  virtual void IExplorerItem_SetText(const std::string& Value) = 0;
  virtual std::string IExplorerItem_ItemData() const = 0;
  virtual void IExplorerItem_SetItemData(const std::string& Value) = 0;
  virtual int IExplorerItem_IconIndex() const = 0;
  virtual void IExplorerItem_SetIconIndex(int Value) = 0;
  virtual bool IExplorerItem_HasChildren() const = 0;
  virtual ExplorerItems IExplorerItem_GetChildren(CExplorer& Explorer, TreeNode& Parent) = 0;
  virtual void IExplorerItem_ShowItems(CExplorer& Explorer) = 0;
  virtual void IExplorerItem_Delete() = 0;
};

}  // namespace corvane
