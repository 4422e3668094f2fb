#include "browser/PaneAreas.h"

namespace corvane {

PaneAreas::PaneAreas(PaneContext& pane) : pane_(pane) {
  PaneControls& c = pane_.controls;
  const auto follow = [this](Control& control, PaneArea area) {
    connections_ += control.GotFocus.Connect([this, area] { pane_.state.Enter(area); });
  };
  follow(*c.cboAddress, kAreaAddress);
  for (int i = 0; i < kToolbarButtons; ++i) follow(c.Toolbar(i), kAreaToolbar);
  follow(*c.TreeView1, kAreaSideBar);
  follow(*c.cmbListLinks, kAreaLinks);
  follow(*c.brwWebBrowser, kAreaPage);
  follow(c.ctlText1.Text1(), kAreaText);
}

bool PaneAreas::Shown(int area) const {
  switch (area) {
    case kAreaToolbar:
      return pane_.controls.ButtonContainer->Visible();
    case kAreaSideBar:
      return !pane_.menu.mnuSideBarContent(kSideBarNone).Checked();
    default:
      return true;
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

void PaneAreas::Go(int step) {
  int area = pane_.state.area;
  do {
    area = (area + step + kPaneAreas) % kPaneAreas;
  } while (area != pane_.state.area && !Shown(area));
  // The page tells of its focus later, or not at all while it loads.
  pane_.state.Enter(area);
  ErrorsIgnored([&] { Focus(area); });
}

}  // namespace corvane
