#pragma once

#include "browser/PaneContext.h"
#include "browser/SideBar.h"

namespace corvane {

/// Moves the focus to the area chosen under AutoFocus once a page has been read,
/// and names the areas that have no words of their own when the user comes to
/// them. After a page was read they keep quiet: its title must be heard.
class AutoFocus {
 public:
  AutoFocus(PaneContext& pane, SideBar& side_bar);

  /// Tests the choices in their order; the first checked one gets the focus, unless it
  /// is hidden. Today's user who is in a page that changes in place stays there.
  void AfterReading(const HTMLDocumentPtr& document);

 private:
  void Name(const char* area);

  PaneContext& pane_;
  SideBar& side_bar_;
  Connections connections_;
};

}  // namespace corvane
