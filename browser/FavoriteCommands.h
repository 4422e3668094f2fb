#pragma once

#include <string>

#include "browser/SideBar.h"

namespace corvane {

/// Keeping pages by key, and changing what is kept. Everything is said.
///
///   Ctrl+D       anywhere in the pane: keep the present page
///   Ctrl+Delete  on a favorite or a visited page: remove it; asks for the key again
///   F2           on a favorite: give it another name
///   Ctrl+I       on a file of bookmarks in Favorites: take them over
class FavoriteCommands {
 public:
  FavoriteCommands(PaneContext& pane, SideBar& side_bar);

  void AddPage();

 private:
  void ControlKey(KeyEvent& key);
  void TreeKey(KeyEvent& key);
  void Remove();
  void StartRename();
  void Renamed(const std::string& name);
  void Import();
  /// The path of the selected folder item; empty when the tree shows no such.
  std::string SelectedPath(bool in_history_too) const;
  /// Runs a body; says in words what went wrong.
  template <class Body>
  void Saying(Body&& body);

  PaneContext& pane_;
  SideBar& side_bar_;
  TreeNodeId to_remove_ = 0;  // its removal was asked for once
  std::string to_rename_;     // the path whose label is being edited
  Connections connections_;
};

}  // namespace corvane
