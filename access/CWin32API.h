#pragma once

#include <string>
#include <vector>

#include "platform/list_box.h"
#include "platform/windows.h"

namespace corvane {

/// Searches the tree of windows by title and class.
class CWin32API {
 public:
  explicit CWin32API(const Windows& windows) : windows_(windows) {}

  /// Also lists the titles of the windows found in a list box of the caller's;
  /// null for none.
  void AttachListBox(ListBox* list) { list_ = list; }

  /// Finds the windows below `hWndStart` whose title begins with a fit of the
  /// pattern `TitleToFind` and whose class fits `ClassToFind` (base/pattern.h),
  /// children before their parents; only the first if `blnOnlyOne`. Returns
  /// their number.
  int FindWindow(WindowHandle hWndStart, const std::string& TitleToFind,
                 const std::string& ClassToFind, std::vector<WindowHandle>& lhWnd, bool blnOnlyOne);

 private:
  /// False once the search has to stop.
  bool Search(WindowHandle parent, const std::string& title, const std::string& class_name);

  const Windows& windows_;
  ListBox* list_ = nullptr;
  std::vector<WindowHandle> found_;
  bool only_one_ = false;
};

}  // namespace corvane
