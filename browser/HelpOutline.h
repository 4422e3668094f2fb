#pragma once

#include <string>

#include "browser/PaneContext.h"

namespace corvane {

/// Loads the help outline into the side bar's tree. Each line of the file is a
/// node; leading tabs (0 to 4) give its depth. What stands before the first
/// colon is the caption, what follows is the explanation, kept as the tag.
class HelpOutline {
 public:
  explicit HelpOutline(PaneContext& pane) : pane_(pane) {}

  /// A missing file changes nothing.
  void GetHelp(const std::string& file);

 private:
  PaneContext& pane_;
};

}  // namespace corvane
