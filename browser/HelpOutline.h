#pragma once

#include <string>

#include "browser/PaneContext.h"
#include "browser/SideBar.h"

namespace corvane {

/// Loads the help outline into the side bar's tree. Each line of the file is a
/// node; leading tabs (0 to 4) give its depth. What stands before the first
/// colon is the caption, what follows is the explanation, kept as the tag.
class HelpOutline {
 public:
  HelpOutline(PaneContext& pane, SideBar& side_bar) : pane_(pane), side_bar_(side_bar) {}

  /// Shows the outline and takes the focus to it. A missing file changes nothing;
  /// one that cannot be read, or is empty, is told and changes nothing either.
  void GetHelp(const std::string& file);

 private:
  PaneContext& pane_;
  SideBar& side_bar_;
};

}  // namespace corvane
