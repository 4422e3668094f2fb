#pragma once

#include <string>

#include "access/AAFormCollection.h"
#include "browser/PaneContext.h"

namespace corvane {

/// What the pane says of the page's elements while the user moves about in it:
/// the announcers' sentences, and what no announcer covers, so that no element
/// gets the focus in silence and no check box changes unheard.
class PageElements {
 public:
  explicit PageElements(PaneContext& pane);

  /// Attaches to a page that has just been loaded.
  void Reset(const HTMLDocumentPtr& document);
  AAFormCollection& Announcers() { return oAAFormCol_; }

 private:
  void oAAFormCol_Say(const std::string& sText);
  void Follow(const HTMLElementPtr& element);

  PaneContext& pane_;
  AAFormCollection oAAFormCol_;
  Connections connections_;
  Connections followed_;  // of the present page
};

}  // namespace corvane
