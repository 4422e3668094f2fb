#include "browser/reading/ElementsDialog.h"

#include <algorithm>

#include "base/handling.h"
#include "browser/reading/TextKinds.h"

namespace corvane {

ElementsDialog::ElementsDialog(PaneContext& pane, PageInPane& page) : pane_(pane), page_(page) {
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
  if (chosen) ErrorsIgnored([&] { Lead(*chosen); });
}

// The focus comes to the text pane when the window is the active one again; what is said
// there then are the words of what was chosen.
void ElementsDialog::Lead(const frmElements::Choice& choice) {
  const auto span = page_.Map() == nullptr ? std::nullopt : page_.Map()->Of(choice.element);
  if (!span) return pane_.announcer.Say("That is not in the page any more");
  page_.GoTo(*span);
  std::string words = ReachedWords(*page_.Map(), page_.Map()->At(*span));
  if (choice.act) words = page_.Use() ? "" : "No link, button or field here";
  pane_.state.arriving = words;
  pane_.controls.ctlText1.SetFocus();
}

}  // namespace corvane
