#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "browser/AccessibilityView.h"
#include "browser/Favorites.h"
#include "browser/PaneContext.h"
#include "browser/PaneLayout.h"
#include "browser/PaneSettings.h"
#include "browser/reading/TextMap.h"
#include "explorer/CExplorer.h"

namespace corvane {

/// The side bar: which content its tree has, its focus and keys, and where its
/// items lead.
class SideBar {
 public:
  SideBar(PaneContext& pane, PaneSettings& settings, PaneLayout& layout);
  ~SideBar();
  SideBar(const SideBar&) = delete;
  SideBar& operator=(const SideBar&) = delete;

  /// Chooses, stores and shows the content; "None" hides the column.
  void mnuSideBarContent_Click(int index);
  /// Shows the structure of the page that has just been read.
  void RefreshTreeStructure();
  /// Shows the accessible objects of the present page.
  void RefreshAABrowser();
  /// Empties the tree for a text outline, whose nodes' tags are explanations.
  TreeView& ClearForOutline();
  /// Selects the first node and says it, for a user who is in the tree; false
  /// when the tree is empty.
  bool SelectFirst();

  /// Has the first node said, behind the page's title, once the tree has been made.
  void SayFirstWhenMade() { say_first_ = true; }

  /// The window closes: what is still being made is given up.
  void Close();

  /// The controller of the tree.
  CExplorer& Explorer() { return explorer_; }
  /// The pages that the user keeps.
  Favorites& Kept() { return favorites_; }
  /// Shows Favorites anew if they are shown, with the same node selected where
  /// it still exists.
  void FavoritesChanged(const std::string& select_path = {});

  /// Where the elements of the page's text are looked up; null while they are not known.
  void LookUpElements(std::function<const TextMap*()> map) { map_ = std::move(map); }
  /// An element of the page's text was chosen.
  Event<const PageElement&> ElementChosen;

  void TreeView1_DblClick();

 private:
  void Show(int content);
  unsigned Begin();
  void ShowStructure(const HTMLDocumentPtr& document);
  void Made();
  ExplorerItems MoreBranches() const;
  bool FollowElement(TreeNode& node);
  void ShowFolder(const std::string& path);
  std::string HistoryPath() const;
  void Explain(TreeNode& node);
  void Follow(TreeNode& node, int content);
  std::string AddressOf(const TreeNode& node, int content) const;
  void OpenOrClose(TreeNode& node);
  bool SelectTop();
  void SaySelected(bool after_title);
  void TreeView1_NodeClick(const TreeNode& node);
  void TreeView1_KeyDown(const KeyEvent& key);
  void TreeView1_KeyUp(const KeyEvent& key);

  PaneContext& pane_;
  PaneSettings& settings_;
  PaneLayout& layout_;
  CExplorer explorer_;
  AccessibilityView accessibility_;
  Favorites favorites_;
  std::shared_ptr<ImageList> icons_large_;
  std::shared_ptr<ImageList> icons_small_;
  std::unique_ptr<ImageList> page_images_;
  std::function<const TextMap*()> map_;
  bool outline_ = false;    // the tree shows a text outline
  unsigned shown_ = 0;      // counts what was shown: a newer content makes an older one stop
  bool say_first_ = false;  // when the content has been made: the user waits for it in the tree
  Connection describing_;   // of the page, to show its structure
  Connections connections_;
};

}  // namespace corvane
