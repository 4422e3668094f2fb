#pragma once

#include <memory>

#include "controls/MenuArray.h"
#include "platform/desktop.h"

namespace corvane {

/// Indexes of the choices, as the menus show them and the settings store them.
enum SideBarContent : int {
  kSideBarNone = 0,
  kSideBarFavorites = 2,
  kSideBarHistory = 3,
  kSideBarPageStructure = 4,
  kSideBarAccessibility = 5,
};
enum TextHistory : int { kClearWithNewPage = 0, kNeverClear = 1 };
enum HomeChoice : int { kHomeNone = 0, kHomeExplorer = 2, kHomeCorvane = 3, kHomeLastOpened = 4 };
/// Indexes of the auto focus choices as the main window's menu has them.
enum FocusChoice : int {
  kFocusNone = 0,
  kFocusLinks = 2,
  kFocusSideBar = 3,
  kFocusWebBrowser = 4,
  kFocusTextBox = 5,
};
inline constexpr int kOptionStatusFeedback = 4;  ///< of mnuOptions

/// The pane's own menu "Main Menu". Its check marks are the pane's options.
class PaneMenu {
 public:
  explicit PaneMenu(Desktop& desktop);

  /// Puts a host's auto focus items in the place of the pane's own, which have
  /// no "Links" and so one item fewer.
  void MirrorFocus(MenuArray& host) { focus_ = &host; }
  MenuArray& mnuFocus() { return *focus_; }

 private:
  std::unique_ptr<Menu> menu_;

 public:
  MenuArray mnuOptions;
  MenuArray mnuSideBarContent;
  MenuArray mnuTextHistory;
  MenuArray mnuHome;

 private:
  MenuArray own_focus_;
  MenuArray* focus_ = &own_focus_;
};

}  // namespace corvane
