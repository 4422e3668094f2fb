#include "browser/AutoFocus.h"

namespace corvane {

AutoFocus::AutoFocus(PaneContext& pane, SideBar& side_bar) : pane_(pane), side_bar_(side_bar) {
  PaneControls& c = pane_.controls;
  connections_ += c.ctlText1.Text1().GotFocus.Connect([this] { Name("Text Box"); });
  connections_ += c.brwWebBrowser->GotFocus.Connect([this] { Name("WebBrowser"); });
  // A tree that was made anew has nothing selected. Whoever comes to it hears
  // where it begins; when the focus was moved for the user, the page's title is
  // not cut off.
  connections_ += c.TreeView1->GotFocus.Connect([this, &c] {
    if (pane_.state.quiet || c.TreeView1->SelectedItem() != nullptr) return;
    if (!side_bar_.SelectFirst()) Name("SideBar");
  });
}

void AutoFocus::Name(const char* area) {
  if (!pane_.state.quiet) pane_.announcer.Say(area);
}

// Each item is tested by itself: one that the menu does not have fails and sets
// no focus.
void AutoFocus::AfterReading() {
  if (pane_.state.typing) return;
  const auto chosen = [&](int index) {
    bool checked = false;
    ErrorsIgnored([&] { checked = pane_.menu.mnuFocus()(index).Checked(); });
    return checked;
  };
  PaneControls& c = pane_.controls;
  pane_.state.quiet = true;
  ErrorsIgnored([&] {
    if (chosen(kFocusLinks)) {
      c.cmbListLinks->SetFocus();
    } else if (chosen(kFocusSideBar)) {
      c.TreeView1->SetFocus();
    } else if (chosen(kFocusWebBrowser)) {
      c.brwWebBrowser->SetFocus();
    } else if (chosen(kFocusTextBox)) {
      c.ctlText1.SetFocus();
    }
  });
  pane_.state.quiet = false;
}

}  // namespace corvane
