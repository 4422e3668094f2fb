#pragma once

#include <cstdint>
#include <string>

#include "access/CIAccessible.h"
#include "explorer/IExplorerItem.h"
#include "platform/tree_view.h"

namespace corvane {

/// One accessible element in the side bar's tree, labelled with its name and its
/// role in words. Reads everything once, when it is given its element; an
/// element is asked for its children when its node is opened: for the first few at
/// once, for others piece by piece while the user goes on.
class CIAccessibleBrowser : public IExplorerItem {
 public:
  CIAccessibleBrowser(Accessibility& accessibility, const Windows& windows)
      : accessibility_(accessibility), windows_(windows), access_(accessibility, windows) {}

  AccessiblePtr objIAChild;
  AccessibleKid m_vKid;
  std::uint32_t State = 0;
  int Role = 0;
  /// Children flagged invisible are shown too; they inherit it.
  bool blnShowInvisible = false;

  /// Takes an element and reads all that the node shows of it.
  void setChild(const AccessiblePtr& child, AccessibleKid vKid);

 protected:
  std::string IExplorerItem_Text() const override { return label_; }
  const CIAccessible& Access() const { return access_; }

 private:
  void IExplorerItem_SetText(const std::string& Value) override;
  std::string IExplorerItem_ItemData() const override { return value_; }
  void IExplorerItem_SetItemData(const std::string& /*Value*/) override {}
  int IExplorerItem_IconIndex() const override { return 1; }
  void IExplorerItem_SetIconIndex(int /*Value*/) override {}
  bool IExplorerItem_HasChildren() const override { return has_children_; }
  ExplorerItems IExplorerItem_GetChildren(CExplorer& Explorer, TreeNode& Parent) override;
  void IExplorerItem_ShowItems(CExplorer& /*Explorer*/) override {}
  void IExplorerItem_Delete() override;

  std::string Label(const std::string& name) const;
  void AddIfShown(const AccessiblePtr& object, AccessibleKid kid, ExplorerItems& items) const;
  void FetchMore(CExplorer& explorer, TreeNodeId node, int from);

  Accessibility& accessibility_;
  const Windows& windows_;
  CIAccessible access_;
  std::string label_;
  std::string value_;
  bool has_children_ = false;
  Connection fetching_;  // of further children
};

}  // namespace corvane
