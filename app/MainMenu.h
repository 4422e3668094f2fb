#pragma once

#include <memory>

#include "base/manner.h"
#include "controls/MenuArray.h"
#include "platform/desktop.h"

namespace corvane {

/// Indexes of menu items that code refers to.
enum FileItem : int {
  kFileNewWindow,
  kFileOpenWebSite,
  kFileOpen,
  kFileSaveAs,
  kFilePrint = 5,
  kFileExit = 7
};
enum GoItem : int { kGoBack, kGoForward, kGoRefresh = 3 };
enum ViewItem : int { kViewToolbar, kViewStatusbar };
enum HelpItem : int { kHelpContents, kHelpAbout };
enum SettingsItem : int {
  kSettingsEngine = 0,
  kSettingsSideBar = 2,
  kSettingsTextHistory,
  kSettingsHome,
  kSettingsFocus,
  kSettingsStatusFeedback = 7,
};
enum SpeechItem : int { kSpeechEnable = 0, kSpeechKeyEcho = 1, kSpeechRate = 3, kSpeechPitch = 4 };

/// The menu bar of a browser window: its arrays with their captions, in the
/// order in which the items count and are numbered. No behaviour. The manner in
/// force when it is made decides the captions, never their places.
class MainMenu {
 public:
  MainMenu(Desktop& desktop, const Manner& manner);

  Menu& Bar() { return *bar_; }

 private:
  void NumberItems();

  std::unique_ptr<Menu> bar_;

 public:
  MenuArray mnuFile;  ///< the titles of the bar
  MenuArray mnuFileItem;
  MenuArray mnuEdit;
  MenuArray mnuGo;
  MenuArray mnuSettings;
  MenuArray mnuSideBarContent;
  MenuArray mnuTextHistory;
  MenuArray mnuHome;
  MenuArray mnuFocus;
  MenuArray mnuView;
  MenuArray mnuSpeech;
  MenuArray mnuRate;
  MenuArray mnuPitch;
  MenuArray mnuHelp;
};

}  // namespace corvane
