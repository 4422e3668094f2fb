#include "browser/PaneAreas.h"

#include <utility>

namespace corvane {

PaneAreas::PaneAreas(PaneContext& pane, Navigation& navigation)
    : pane_(pane), navigation_(navigation) {
  PaneControls& c = pane_.controls;
  const auto follow = [this](Control& control, PaneArea area) {
    connections_ += control.GotFocus.Connect([this, area] { Enter(area); });
  };
  follow(*c.cboAddress, kAreaAddress);
  for (int i = 0; i < kToolbarButtons; ++i) follow(c.Toolbar(i), kAreaToolbar);
  follow(*c.TreeView1, kAreaSideBar);
  follow(*c.cmbListLinks, kAreaLinks);
  follow(*c.brwWebBrowser, kAreaPage);
  follow(c.ctlText1.Text1(), kAreaText);
}

void PaneAreas::Enter(int area) {
  const int left = std::exchange(pane_.state.area, area);
  if (left == kAreaAddress && area != kAreaAddress) navigation_.AddressBoxLeft();
}

// Who loses the place where he is hears where he is then.
void PaneAreas::KeepFocus(const std::function<void()>& change) {
  const int area = pane_.state.area;
  change();
  if (!pane_.Shows(area)) {
    Go(1);
  } else if (area == kAreaAddress) {
    navigation_.FocusAddress();
  } else if (area == kAreaToolbar) {
    ErrorsIgnored([&] { Focus(area); });
  }
}

void PaneAreas::Focus(int area) {
  PaneControls& c = pane_.controls;
  switch (area) {
    case kAreaAddress:
      c.cboAddress->SetFocus();
      break;
    case kAreaToolbar:
      c.Toolbar(kBack).SetFocus();
      break;
    case kAreaSideBar:
      c.TreeView1->SetFocus();
      break;
    case kAreaLinks:
      c.cmbListLinks->SetFocus();
      break;
    case kAreaPage:
      c.brwWebBrowser->SetFocus();
      break;
    default:
      c.ctlText1.SetFocus();
  }
}

// A dialog of the page that has not taken the focus comes first.
void PaneAreas::Next() {
  bool led = false;
  ErrorsIgnored([&] { led = pane_.controls.brwWebBrowser->EnterDialog([this] { Go(1); }); });
  if (!led) Go(1);
}

void PaneAreas::Go(int step) {
  int area = pane_.state.area;
  do {
    area = (area + step + kPaneAreas) % kPaneAreas;
  } while (area != pane_.state.area && !pane_.Shows(area));
  // The page tells of its focus later, or not at all while it loads.
  Enter(area);
  ErrorsIgnored([&] { Focus(area); });
}

}  // namespace corvane
