#include "browser/reading/ElementsDialog.h"

#include <algorithm>

#include "base/handling.h"

namespace corvane {

ElementsDialog::ElementsDialog(PaneContext& pane, PageInPane& page, ActingInText& acting)
    : pane_(pane), page_(page), acting_(acting) {
  // What is listed is gone.
  connections_ += pane_.PageShown.Connect([this] {
    if (form_) form_->Close();
  });
}

void ElementsDialog::Show(Form& owner) {
  if (form_ || !page_.IsKnown()) return;
  map_ = std::make_unique<TextMap>(*page_.Map());
  form_ = std::make_unique<frmElements>(pane_, *map_);
  form_->closed = [this](const auto& choice) { Closed(choice); };
  form_->ShowModal(owner, list_, std::max(page_.Caret(), 0));
}

void ElementsDialog::Closed(const std::optional<frmElements::Choice>& choice) {
  list_ = form_->List();
  const std::optional<frmElements::Choice> chosen = choice;  // the dialog's own goes with it
  form_.reset();
  if (!chosen) return;
  using Then = ActingInText::Then;
  ErrorsIgnored([&] { acting_.Lead(chosen->element, chosen->act ? Then::Act : Then::Read); });
}

}  // namespace corvane
