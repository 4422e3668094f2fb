#pragma once

#include <string>

#include "browser/PaneContext.h"
#include "browser/PaneSettings.h"

namespace corvane {

/// Numbers of cmdAction.
enum Action : int {
  kActionSaveAs = 1,
  kActionPrint = 2,
  kActionEngineOptions = 3,
  kActionFocusTree = 4,
  kActionFocusText = 5,
  kActionFocusAddress = 6,
  kActionFocusToolbar = 7,
  kActionOpenWebSite = 8,
  kActionStatusFeedback = 9,
};

/// How the pane goes somewhere: start page, address box with its search words,
/// toolbar, numbered commands, and the rendering control's events.
class Navigation {
 public:
  Navigation(PaneContext& pane, PaneSettings& settings);

  void Navigate(const std::string& url);
  /// Goes where the "&Home" option says; the first time to the address that the
  /// window was opened with, if it was.
  void StartPage();
  /// Numbers are the host's commands; an unknown one does nothing.
  /// Whether status texts are spoken.
  void SetStatusFeedback(bool on);
  void cmdAction(int action);
  /// Clipboard editing on the text pane: 0 cut, 1 copy, 2 paste, 4 select all.
  void Edit(int action);
  void cmdToolbar_Click(int index);
  /// Goes where the address box says.
  void cboAddress_DblClick();
  /// Brings the user to the address box, who hears it also when he is there already.
  void FocusAddress();
  /// The user has left the address box; an address that was not gone to is given up.
  void AddressBoxLeft();
  /// Checks "Enable &Status Change Feedback"; from then on status texts are
  /// spoken. A second click does not take it back.
  void mnuOptions_Click(int index);

 private:
  void GoSearch(const std::string& words);
  void cmdToolbar_KeyDown(KeyEvent& key);
  void cboAddress_KeyPress(int& KeyAscii);
  void SayAddressBox();
  void ShowAddress(const std::string& address);
  void TakeBackAddress();
  void brwWebBrowser_DownloadBegin();
  void brwWebBrowser_DownloadComplete();
  void brwWebBrowser_StatusTextChange(const std::string& text);

  PaneContext& pane_;
  PaneSettings& settings_;
  std::string strShown_;  // what the address box shows unless the user puts something else there
  Connections connections_;
};

}  // namespace corvane
