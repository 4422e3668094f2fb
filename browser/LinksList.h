#pragma once

#include <functional>
#include <string>
#include <vector>

#include "access/AAFormCollection.h"
#include "browser/PaneContext.h"

namespace corvane {

/// The page's links as one list: a header that says how many there are, then a
/// line for each link. Choosing a line follows it.
class LinksList {
 public:
  LinksList(PaneContext& pane, AAFormCollection& announcers);

  /// Fills the list from a document. Waiting events run before every link; when
  /// `still_wanted` then says no, the rest is left to whoever refills the list.
  /// Each link gets its announcer.
  void Fill(const HTMLDocument& document, const std::function<bool()>& still_wanted);
  void cmbListLinks_DblClick();

 private:
  const std::string& LineFor(const HTMLElement& link) const;
  std::string Words() const;
  void cmbListLinks_KeyDown(const KeyEvent& key);

  PaneContext& pane_;
  AAFormCollection& oAAFormCol_;
  std::string name_;  // of the page
  std::string language_;
  std::string page_;                   // its address, behind the list's first line
  std::vector<HTMLElementPtr> links_;  // those behind the other lines
  bool filling_ = false;               // nothing is selected before the list is whole
  Connections connections_;
};

}  // namespace corvane
