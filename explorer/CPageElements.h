#pragma once

#include <memory>
#include <string>
#include <vector>

#include "explorer/IExplorerItem.h"
#include "platform/page_text.h"

namespace corvane {

/// An element of the loaded page's text in the tree, or a branch of them.
class CPageElements : public IExplorerItem {
 public:
  struct Entry {
    std::string words;
    PageElement element;
  };

  /// A branch that shows its name and how many elements there are: "Headings 12". The
  /// pictures are those of the branch and of its elements.
  static std::shared_ptr<IExplorerItem> Branch(const std::string& name, std::vector<Entry> entries,
                                               int picture, int element_picture);

  /// The element that it stands for; none for a branch.
  const PageElement& Element() const { return entry_.element; }

 private:
  std::string IExplorerItem_Text() const override { return entry_.words; }
  [[noreturn]] void IExplorerItem_SetText(const std::string& Value) override;
  std::string IExplorerItem_ItemData() const override { return {}; }
  void IExplorerItem_SetItemData(const std::string&) override {}
  int IExplorerItem_IconIndex() const override { return picture_; }
  void IExplorerItem_SetIconIndex(int) override {}
  bool IExplorerItem_HasChildren() const override { return !entries_.empty(); }
  ExplorerItems IExplorerItem_GetChildren(CExplorer& Explorer, TreeNode& Parent) override;
  void IExplorerItem_ShowItems(CExplorer&) override {}
  [[noreturn]] void IExplorerItem_Delete() override;

  Entry entry_;
  std::vector<Entry> entries_;  // of a branch
  int picture_ = 0;
  int element_picture_ = 0;
};

}  // namespace corvane
