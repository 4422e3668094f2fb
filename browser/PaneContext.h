#pragma once

#include <optional>
#include <string>

#include "base/manner.h"
#include "browser/Announcer.h"
#include "browser/PaneControls.h"
#include "browser/PaneMenu.h"
#include "browser/StatusPanel.h"

namespace corvane {

/// The areas of a browser window, in the order in which F6 goes round them.
enum PaneArea : int {
  kAreaAddress,
  kAreaToolbar,
  kAreaSideBar,
  kAreaLinks,
  kAreaPage,
  kAreaText,
  kPaneAreas
};

/// Plain state of the pane that several of its collaborators use.
struct PaneState {
  std::string strAddress;          ///< the present page; saved as "StartingAddress"
  std::string strFirstAddress;     ///< shown in place of the start page, once
  float sngSplitter = 0.25F;       ///< side bar width / container width
  float sngSplitterH = 0.25F;      ///< text pane height / container height
  bool blnStatusFeedback = false;  ///< status texts are spoken
  int page_text = 0;               ///< where the page's text begins in the text pane
  int area = kAreaText;            ///< where the user is; so F6 leads to the address box first
  /// An address is being typed: a page that is there at last must not take it, or the
  /// focus, from under the user's fingers.
  bool typing = false;
  bool entering = false;  ///< the focus is about to be led into an element of the page
  /// What is said in place of the text pane's name when the focus comes there next; empty
  /// for nothing.
  std::optional<std::string> arriving;
  bool by_history = false;  ///< the user has gone back or forward, and no page has come yet
  bool quiet = false;       ///< the focus is moved for the user: the page's title is not cut off
};

/// What the pane's collaborators share.
struct PaneContext {
  explicit PaneContext(Desktop& platform, const Manner& how = kEstablishedManner)
      : desktop(platform),
        manner(how),
        controls(platform, how),
        menu(platform),
        announcer(platform.GetMessageBox(), controls.ctlText1) {}
  PaneContext(const PaneContext&) = delete;
  PaneContext& operator=(const PaneContext&) = delete;

  Desktop& desktop;
  const Manner& manner;
  PaneControls controls;
  PaneMenu menu;
  PaneState state;
  StatusPanel status;
  Announcer announcer;
  /// A page's text stands in the text pane, from state.page_text to the end.
  Event<> PageShown;

  /// Whether an area is on the screen. Only there may the focus go.
  bool Shows(int area) const {
    switch (area) {
      case kAreaToolbar:
        return controls.ButtonContainer->Visible();
      case kAreaSideBar:
      case kAreaLinks:
        return !menu.mnuSideBarContent(kSideBarNone).Checked();
      default:
        return true;
    }
  }
  /// Whether there is a page to come back to at the next start. One that only told of a
  /// problem is none.
  bool HasStartAddress() const {
    return !state.strAddress.empty() && state.strAddress != kProblemAddress;
  }
  /// Starts the reading cycle.
  void StartReading() { controls.timTimer->SetEnabled(true); }
};

}  // namespace corvane
