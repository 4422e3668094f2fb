#pragma once

#include <memory>

#include "browser/PaneContext.h"
#include "browser/reading/ActingInText.h"
#include "browser/reading/PageInPane.h"
#include "browser/reading/frmElements.h"

namespace corvane {

/// Lets the user choose an element of the page from lists, and leads there.
class ElementsDialog {
 public:
  ElementsDialog(PaneContext& pane, PageInPane& page, ActingInText& acting);

  /// Shows the lists over the pane's window, on the kind that was shown last. Without
  /// effect while they are shown.
  void Show(Form& owner);

 private:
  void Closed(const std::optional<frmElements::Choice>& choice);

  PaneContext& pane_;
  PageInPane& page_;
  ActingInText& acting_;
  ElementList list_ = ElementList::Headings;
  std::unique_ptr<TextMap> map_;  // of the page as it was when the lists were opened
  std::unique_ptr<frmElements> form_;
  Connections connections_;
};

}  // namespace corvane
