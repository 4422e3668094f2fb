#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "platform/linux/access/linux_accessibility.h"
#include "platform/linux/automation/bus_automation.h"
#include "platform/linux/downloads_dialog.h"
#include "platform/linux/engine_options_dialog.h"
#include "platform/linux/gtk/clipboard.h"
#include "platform/linux/gtk/dialogs/dialog_listener.h"
#include "platform/linux/gtk/dialogs/message_box.h"
#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "platform/linux/gtk/do_events.h"
#include "platform/linux/gtk/hooks/activation_hook.h"
#include "platform/linux/gtk/hooks/event_hooks.h"
#include "platform/linux/gtk/window_table.h"
#include "platform/linux/page_alerts.h"
#include "platform/linux/permissions_dialog.h"
#include "platform/linux/session_end.h"
#include "platform/linux/speech/linux_voice.h"
#include "platform/linux/speech/pulse_page_sound.h"
#include "platform/linux/speech/speech_makers.h"
#include "platform/linux/speech/speech_output.h"
#include "platform/linux/stall_meter.h"
#include "platform/linux/store/engine_registry.h"
#include "platform/linux/store/ini_settings_store.h"
#include "platform/linux/store/local_file_system.h"
#include "platform/linux/web/web_engine.h"
#include "platform/shell_folder.h"
#include "web/library/HistoryFolder.h"

namespace corvane::desktop {

/// The desktop of a Linux session: GTK windows, WebKitGTK pages, espeak-ng
/// speech, files under the XDG folders. One a process; the display must be open.
class LinuxDesktop : public Desktop {
 public:
  enum class StartedBy { Person, Automation };
  explicit LinuxDesktop(StartedBy started_by);
  ~LinuxDesktop() override;

  std::unique_ptr<Form> CreateForm(const std::string& name) override;
  std::unique_ptr<Menu> CreateMenu() override;
  std::unique_ptr<ElasticFrame> CreateElasticFrame(const std::string& name) override;
  std::unique_ptr<ComboBox> CreateComboBox(const std::string& name, ComboBox::Style style) override;
  std::unique_ptr<CommandButton> CreateCommandButton(const std::string& name) override;
  std::unique_ptr<StatusBar> CreateStatusBar(const std::string& name) override;
  std::unique_ptr<RichTextBox> CreateRichTextBox(const std::string& name) override;
  std::unique_ptr<ListBox> CreateListBox(const std::string& name) override;
  std::unique_ptr<TextBox> CreateTextBox(const std::string& name) override;
  std::unique_ptr<TreeView> CreateTreeView(const std::string& name) override;
  std::unique_ptr<ListView> CreateListView(const std::string& name) override;
  std::unique_ptr<ImageList> CreateImageList() override;
  std::unique_ptr<WebBrowser> CreateWebBrowser(const std::string& name) override;
  std::unique_ptr<Timer> CreateTimer() override;
  std::unique_ptr<RebarWindow> CreateRebarWindow(ElasticFrame& parent, std::uint32_t style,
                                                 int width, int height) override;
  std::unique_ptr<Agent> CreateAgent() override;
  Voice& GetVoice() override { return voice_; }
  const InstalledVoices& Voices() override { return makers_.Voices(); }
  void SpeakThrough(SpeechMaker maker) override { makers_.SpeakThrough(maker); }
  SpeechMaker SpeaksThrough() const override { return makers_.InUse(); }
  void SpeakDialogsThrough(std::function<void(const DialogWords&)> speak) override {
    speak_dialog_ = std::move(speak);
  }
  std::unique_ptr<ActivationHook> CreateActivationHook() override;
  std::unique_ptr<KeyboardHook> CreateKeyboardHook() override;
  std::unique_ptr<MessageHook> CreateMessageHook() override;

  Windows& GetWindows() override { return *all_windows_; }
  MessageBox& GetMessageBox() override { return *message_box_; }
  SettingsStore& GetSettings() override { return settings_; }
  Registry& GetRegistry() override { return registry_; }
  FileSystem& GetFileSystem() override { return files_; }
  Clipboard& GetClipboard() override { return clipboard_; }
  Shell& GetShell() override;
  Automation& GetAutomation() override { return automation_; }
  Accessibility& GetAccessibility() override;
  PageSound& GetPageSound() override { return page_sound_; }

  std::unique_ptr<FileDialog> CreateFileDialog() override;
  std::unique_ptr<Image> CreateImage(const std::string& name) override;
  std::unique_ptr<Line> CreateLine(const std::string& name) override;
  void OfferOptions(OwnOptions options) override {
    options_dialog_->OfferOptions(std::move(options));
  }
  void ShowEngineOptions() override { options_dialog_->Show(); }
  void ShowDownloads() override { downloads_dialog_->Show(); }
  void DoEvents() override;
  void Pause(int milliseconds) override;
  void Later(std::function<void()> action) override;
  float TwipsPerPixel() const override;
  std::uint32_t SysColor(SystemColor index) const override;
  std::string Name() const override { return "Linux"; }
  bool StartedByAutomation() const override;

  /// Runs the event loop until no window and no message box is left.
  void Run();
  /// For an exception that no handler has taken: shows it and lets the program go
  /// on. Only inside a catch clause.
  void ShowEscapedError();

 private:
  EngineOptions MakeEngineOptions();
  void MakeOptionsDialog();
  void MakeDownloadsDialog();
  void AskLabel(const std::string& label,
                const std::function<void(std::optional<std::string>)>& done);
  void End();
  /// What dialogs speak with: the program's, and those whose words are a page's.
  enum class Asks { Program, Page };
  Speaker SpeakerForDialogs(Asks asks = Asks::Program);
  void QuitWhenNothingIsLeft();
  void TellNotices();

  StartedBy started_by_;
  EventHooks hooks_;
  WindowTable windows_;
  IniSettingsStore settings_;
  EngineRegistry registry_;
  LocalFileSystem files_;
  SystemClipboard clipboard_;
  std::unique_ptr<Shell> shell_;
  BusAutomation automation_;
  std::unique_ptr<LinuxAccessibility> accessibility_;
  std::unique_ptr<Windows> all_windows_;  // those of other programs, too
  PulsePageSound page_sound_;             // before there are threads: it changes the environment
  std::unique_ptr<SpeechOutput> speech_;
  LinuxVoice voice_;
  SpeechMakers makers_;
  std::function<void(const DialogWords&)> speak_dialog_;
  std::unique_ptr<MessageBoxQueue> message_box_;
  SpokenDialogs dialogs_;  // the program's own questions
  DialogListener dialog_listener_;
  std::shared_ptr<PageAlerts> alerts_;
  std::shared_ptr<HistoryFolder> visits_;
  std::unique_ptr<WebEngine> engine_;
  std::unique_ptr<PermissionsDialog> permissions_dialog_;
  std::unique_ptr<EngineOptionsDialog> options_dialog_;
  std::unique_ptr<DownloadsDialog> downloads_dialog_;
  bool running_ = false;
  std::vector<std::string> notices_;  // not told yet
  PendingEvents pending_events_;
  StallMeter stall_meter_;
  SessionEnd session_end_{[this] { End(); }};
  Connections connections_;
};

}  // namespace corvane::desktop
