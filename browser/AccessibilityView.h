#pragma once

#include <memory>

#include "access/CIAccessible.h"
#include "browser/PaneContext.h"
#include "explorer/CExplorer.h"
#include "platform/errors_shown.h"

namespace corvane {

/// The side bar's "Accessibility Browser": the accessible elements of the
/// rendering control's windows, as a tree.
class AccessibilityView {
 public:
  AccessibilityView(PaneContext& pane, CExplorer& explorer);

  /// Fetches the elements anew and shows them when they are there.
  void RefreshAABrowser();
  /// Something else is shown: what is still being fetched is not wanted.
  void GiveUp();
  /// Moves the focus to a node's element and does what the element is for.
  void Follow(const TreeNode& node);

  /// Does something for the view and reports its error as the view's.
  template <class Body>
  void Reported(Body&& body) {
    ErrorsShown(pane_.desktop.GetMessageBox(), "RefreshAABrowser Error: ", body);
  }

  /// The elements are shown.
  Event<> Made;

 private:
  void Timer1_Timer();
  void Fetch();
  void Build();
  void Say(const std::string& problem);

  PaneContext& pane_;
  CExplorer& explorer_;
  CIAccessible access_;
  std::vector<WindowHandle> windows_;  // of the rendering control
  int retries_ = 0;
  bool failed_ = false;  // the user has been told
  Connection fetching_;
  Connections connections_;
};

}  // namespace corvane
