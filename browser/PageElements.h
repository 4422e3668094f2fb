#pragma once

#include <functional>
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

  /// Attaches to a page that has just been loaded; `done` is called behind that, once
  /// the user has closed a message box about it.
  void Reset(const HTMLDocumentPtr& document, std::function<void()> done);
  AAFormCollection& Announcers() { return oAAFormCol_; }

 private:
  void oAAFormCol_Say(const std::string& sText);
  void Follow(const HTMLElementPtr& element);
  void Changed(const HTMLElement& element);
  std::string ControlReached(const HTMLElement& element);

  PaneContext& pane_;
  AAFormCollection oAAFormCol_;
  HTMLDocumentPtr document_;  // the present page
  std::string control_;       // of the player in focus, that its user has come to
  Connections connections_;
  Connections followed_;  // of the present page
};

}  // namespace corvane
