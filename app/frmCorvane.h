#pragma once

#include <memory>
#include <string>

#include "app/KeyCommands.h"
#include "app/MainMenu.h"
#include "app/MenuCommands.h"
#include "app/WindowDialogs.h"
#include "browser/ctlWebBrowser.h"
#include "platform/desktop.h"
#include "speech/ISpeechNotify.h"
#include "speech/ISpeechWindow.h"

namespace corvane {

class MainApp;
class Multithread;

/// The title under which a window's own settings are stored.
inline constexpr const char* kApplicationTitle = "Corvane";

/// The browser window: hosts the browser pane, menu bar and status bar, keeps
/// its placement and the speech settings, and is where all speech of its
/// components goes through.
class frmCorvane : public ISpeechNotify,
                   public ISpeechWindow,
                   public MenuCommands::Host,
                   public std::enable_shared_from_this<frmCorvane> {
 public:
  frmCorvane(Desktop& desktop, Multithread& process);
  ~frmCorvane() override;

  /// What the window shows in place of its start page; empty for that. Before Show.
  void StartWith(const std::string& address) { first_address_ = address; }
  /// The shared speech service, null once the window is unloaded.
  std::shared_ptr<corvane::MainApp> MainApp() const override { return service_; }
  /// Closes the window, whatever its page wants; without effect when it is not
  /// loaded.
  void Unload();
  /// Replays the stored menu choices. Once, while loading: the speech items toggle.
  void LoadSettings();

  /// The window's inside, for tests. Null while it is not loaded.
  struct Parts {
    Parts(Desktop& desktop, const Manner& manner, MenuCommands::Host& host);
    std::unique_ptr<corvane::Form> form;
    std::unique_ptr<ElasticFrame> ELAMain;
    std::unique_ptr<StatusBar> sbStatusBar;
    MainMenu menu;
    ctlWebBrowser ctlWebBrowser1;
    MenuCommands commands;
    WindowDialogs dialogs;
    KeyHelp help;
    KeyCommands keys;
    Connections connections;
  };
  Parts* Inside() { return parts_.get(); }

 private:
  void ISpeechNotify_Say(const std::string& Text, const bool& blnUrgent) override;
  void ISpeechNotify_SayThrough(const std::string& Text, Spoken spoken) override;
  void ISpeechNotify_SayBehind(const std::string& Text, Spoken spoken) override;
  void ISpeechNotify_SayAs(const std::string& Text, Whose whose, Sign sign) override;
  void ISpeechWindow_SetMainApp(std::shared_ptr<corvane::MainApp> service) override;
  void ISpeechWindow_Show() override;
  MenuItem& ISpeechWindow_EnableSpeechItem() override;
  corvane::Form& ISpeechWindow_Window() override;
  bool ISpeechWindow_AnswersKey(int key_code) override;
  void ISpeechWindow_SpeechReady(bool tell_where) override;
  void SaveSetting(const std::string& key, const std::string& value) override;
  void NewWindow() override;
  void ShowStatusBar(bool show) override;
  void Realign() override;
  WindowDialogs& Dialogs() override;
  std::string HelpFile() override;
  void CloseByUser() override;

  void Load();
  void Form_Load();
  void Form_QueryUnload(bool& Cancel, corvane::Form::UnloadMode UnloadMode);
  void Form_Unload();
  void ctlWebBrowser1_NewWindow();
  void MainApp_KeyboardEchoStatus(bool blnKeyboardEcho);
  std::string Setting(const std::string& key, const std::string& fallback) const;
  void Place();
  bool FillsScreen() const;
  void TakeOverEcho();
  void ReportSettings();

  Desktop& desktop_;
  Multithread& process_;
  std::shared_ptr<corvane::MainApp> service_;
  Connection echo_status_;
  std::string first_address_;
  std::unique_ptr<Parts> parts_;
};

}  // namespace corvane
