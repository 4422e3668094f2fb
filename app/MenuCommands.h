#pragma once

#include <memory>
#include <string>

#include "app/MainMenu.h"
#include "base/manner.h"
#include "browser/ctlWebBrowser.h"

namespace corvane {

class MSAgent;
class MainApp;
class WindowDialogs;

/// What the menu bar's commands do. They forward to the browser pane and drive
/// the speech service; the check marks are the state.
class MenuCommands {
 public:
  /// What the commands need of their window.
  class Host {
   public:
    virtual ~Host() = default;
    virtual std::shared_ptr<corvane::MainApp> MainApp() const = 0;
    /// Stores one of the window's own settings.
    virtual void SaveSetting(const std::string& key, const std::string& value) = 0;
    /// Closes the window as its user does: its page may ask first.
    virtual void CloseByUser() = 0;
    /// Opens a further window that shares this one's service.
    virtual void NewWindow() = 0;
    /// Shows the status bar and gives it to the pane, or the other way round.
    virtual void ShowStatusBar(bool show) = 0;
    /// Lays the window out anew.
    virtual void Realign() = 0;
    virtual WindowDialogs& Dialogs() = 0;
    /// The help text's path; empty when it is not there, which the user is then
    /// told.
    virtual std::string HelpFile() = 0;
  };

  /// All must outlive this object.
  MenuCommands(MainMenu& menu, ctlWebBrowser& pane, const Manner& manner, Host& host);

  void mnuFileItem_Click(int index);
  void mnuEdit_Click(int index);
  void mnuGo_Click(int index);
  void mnuView_Click(int index);
  void mnuHelp_Click(int index);
  void mnuSettings_Click(int index);
  void mnuSideBarContent_Click(int index);
  void mnuTextHistory_Click(int index);
  void mnuHome_Click(int index);
  void mnuFocus_Click(int index);
  void mnuSpeech_Click(int index);
  void mnuRate_Click(int index);
  void mnuPitch_Click(int index);

  /// Says again what was said last, and asked again what came before it; copies it.
  /// False, and nothing done, in the established manner and without speech.
  bool SayAgain();
  bool CopySaid();

 private:
  MSAgent* Talker() const;
  /// Inverts an item's check mark, stores it under `key` and returns it.
  bool Toggle(MenuItem& item, const std::string& key);
  void TellRateAndPitch();
  bool SpeechEnabled() const { return menu_.mnuSpeech(kSpeechEnable).Checked(); }

  MainMenu& menu_;
  ctlWebBrowser& pane_;
  const Manner& manner_;
  Host& host_;
  Connections connections_;
};

}  // namespace corvane
