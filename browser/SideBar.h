#pragma once

#include <string>

#include "browser/PaneContext.h"
#include "browser/PaneLayout.h"
#include "browser/PaneSettings.h"

namespace corvane {

/// The side bar's tree and column: which content it has, its focus and keys.
class SideBar {
 public:
  SideBar(PaneContext& pane, PaneSettings& settings, PaneLayout& layout);

  /// Chooses, stores and shows the content; "None" hides the column.
  void mnuSideBarContent_Click(int index);

 private:
  void TreeView1_GotFocus();
  void TreeView1_NodeClick(const TreeNode& node);
  void TreeView1_KeyUp(const KeyEvent& key);

  PaneContext& pane_;
  PaneSettings& settings_;
  PaneLayout& layout_;
  Connections connections_;
};

}  // namespace corvane
