#pragma once

#include <string>

#include "explorer/IExplorerItem.h"

namespace corvane {

/// Stands below a node that is open while its children are still on their way.
class WaitingItem : public IExplorerItem {
 private:
  std::string IExplorerItem_Text() const override { return "Working..."; }
  void IExplorerItem_SetText(const std::string& /*Value*/) override {}
  std::string IExplorerItem_ItemData() const override { return ""; }
  void IExplorerItem_SetItemData(const std::string& /*Value*/) override {}
  int IExplorerItem_IconIndex() const override { return 1; }
  void IExplorerItem_SetIconIndex(int /*Value*/) override {}
  bool IExplorerItem_HasChildren() const override { return false; }
  ExplorerItems IExplorerItem_GetChildren(CExplorer& /*Explorer*/, TreeNode& /*Parent*/) override {
    return {};
  }
  void IExplorerItem_ShowItems(CExplorer& /*Explorer*/) override {}
  void IExplorerItem_Delete() override {}
};

}  // namespace corvane
