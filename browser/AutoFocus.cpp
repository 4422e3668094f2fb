#include "browser/AutoFocus.h"

#include <utility>

namespace corvane {

AutoFocus::AutoFocus(PaneContext& pane, SideBar& side_bar) : pane_(pane), side_bar_(side_bar) {
  PaneControls& c = pane_.controls;
  connections_ += c.ctlText1.Text1().GotFocus.Connect([this] {
    const auto words = std::exchange(pane_.state.arriving, std::nullopt);
    if (!words) return Name("Text Box");
    if (!words->empty()) pane_.announcer.Say(*words);
  });
  connections_ += c.brwWebBrowser->GotFocus.Connect([this] {
    pane_.state.arriving.reset();  // the text pane has been passed over
    // The element that the focus is led into says itself.
    if (!std::exchange(pane_.state.entering, false)) Name("WebBrowser");
  });
  // A tree that was made anew has nothing selected. Whoever comes to it hears
  // where it begins, as soon as it has been made; when the focus was moved for the user,
  // only where that is the manner.
  connections_ += c.TreeView1->GotFocus.Connect([this, &c] {
    if (c.TreeView1->SelectedItem() != nullptr) return;
    if (pane_.state.quiet && !pane_.manner.today) return;
    if (side_bar_.SelectFirst()) return;
    if (pane_.state.quiet) side_bar_.SayFirstWhenMade();
    Name("SideBar");
  });
}

void AutoFocus::Name(const char* area) {
  if (!pane_.state.quiet) pane_.announcer.Say(area);
}

// Each item is tested by itself: one that the menu does not have fails and sets
// no focus.
void AutoFocus::AfterReading(const HTMLDocumentPtr& document) {
  if (pane_.state.typing) return;
  // Who has asked what the page is like now wants to go on where he is.
  if (document && document->read_again && pane_.manner.today) return;
  // A page that has changed in place is not what was asked for in the address box: who has
  // gone there meanwhile is about to type.
  const bool stays = pane_.state.area == kAreaPage || pane_.state.area == kAreaAddress;
  if (document && document->in_place && stays && pane_.manner.today) return;
  const auto chosen = [&](int index) {
    bool checked = false;
    ErrorsIgnored([&] { checked = pane_.menu.mnuFocus()(index).Checked(); });
    return checked;
  };
  PaneControls& c = pane_.controls;
  pane_.state.quiet = true;
  ErrorsIgnored([&] {
    if (chosen(kFocusLinks)) {
      if (pane_.Shows(kAreaLinks)) c.cmbListLinks->SetFocus();
    } else if (chosen(kFocusSideBar)) {
      if (pane_.Shows(kAreaSideBar)) c.TreeView1->SetFocus();
    } else if (chosen(kFocusWebBrowser)) {
      c.brwWebBrowser->SetFocus();
    } else if (chosen(kFocusTextBox)) {
      c.ctlText1.SetFocus();
    }
  });
  pane_.state.quiet = false;
}

}  // namespace corvane
