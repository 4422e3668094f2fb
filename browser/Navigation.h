#pragma once

#include <string>

#include "browser/PaneContext.h"
#include "browser/PaneSettings.h"

namespace corvane {

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
  void cboAddress_DblClick();
  /// Checks "Enable &Status Change Feedback"; from then on status texts are
  /// spoken. A second click does not take it back.
  void mnuOptions_Click(int index);

 private:
  void GoSearch(const std::string& words);
  void cmdToolbar_KeyDown(KeyEvent& key);
  void cboAddress_KeyPress(int& KeyAscii);
  void SayAddressBox();
  void FocusAddress();
  void brwWebBrowser_DownloadBegin();
  void brwWebBrowser_DownloadComplete();
  void brwWebBrowser_StatusTextChange(const std::string& text);

  PaneContext& pane_;
  PaneSettings& settings_;
  Connections connections_;
};

}  // namespace corvane
