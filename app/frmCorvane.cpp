#include "app/frmCorvane.h"

#include "app/Application.h"
#include "app/Multithread.h"
#include "base/handling.h"
#include "base/number.h"
#include "speech/MSAgent.h"
#include "speech/MainApp.h"

namespace corvane {
namespace {

constexpr const char* kHelpText = "cvhelp.txt";
constexpr const char* kHelpMissing =
    "The help text cvhelp.txt was not found. Installing Corvane again brings it back.";
constexpr const char* kTrue = "True";
constexpr int kNoticePanel = 2;  // the first belongs to the pane

}  // namespace

frmCorvane::Parts::Parts(Desktop& desktop, const Manner& manner, MenuCommands::Host& host)
    : form(desktop.CreateForm("frmCorvane")),
      ELAMain(desktop.CreateElasticFrame("ELAMain")),
      sbStatusBar(desktop.CreateStatusBar("sbStatusBar")),
      menu(desktop, manner),
      ctlWebBrowser1(desktop, manner),
      commands(menu, ctlWebBrowser1, manner, host),
      dialogs(desktop, manner, *form),
      keys(*form, commands, ctlWebBrowser1) {
  form->SetCaption(kApplicationTitle);
  form->SetMenu(menu.Bar());
  form->SetContent(*ELAMain);
  form->SetStatusBar(*sbStatusBar);
  ELAMain->Add(ctlWebBrowser1.Frame());
  ctlWebBrowser1.MirrorFocusMenu(menu.mnuFocus);
}

frmCorvane::frmCorvane(Desktop& desktop, Multithread& process)
    : desktop_(desktop), process_(process) {}

frmCorvane::~frmCorvane() = default;

void frmCorvane::ISpeechWindow_SetMainApp(std::shared_ptr<corvane::MainApp> service) {
  echo_status_.Disconnect();
  service_ = std::move(service);
  if (!service_) return;
  echo_status_ = service_->KeyboardEchoStatus.Connect(
      [this](bool blnKeyboardEcho) { MainApp_KeyboardEchoStatus(blnKeyboardEcho); });
}

void frmCorvane::ISpeechWindow_Show() {
  try {
    if (!parts_) Load();
    parts_->form->Show();
    parts_->ctlWebBrowser1.Show();
  } catch (...) {
    // A window that nobody can see or hear must not keep the process alive.
    if (parts_) Form_Unload();
    throw;
  }
}

MenuItem& frmCorvane::ISpeechWindow_EnableSpeechItem() {
  return Required(parts_).menu.mnuSpeech(kSpeechEnable);
}

corvane::Form& frmCorvane::ISpeechWindow_Window() { return *Required(parts_).form; }

void frmCorvane::ISpeechWindow_SpeechReady() {
  ErrorsIgnored([&] { Required(parts_).ctlWebBrowser1.SayWhereYouAre(); });
}

void frmCorvane::Load() {
  parts_ = std::make_unique<Parts>(desktop_, process_.Manner(), *this);
  parts_->connections += parts_->form->QueryUnload.Connect(
      [this](bool& Cancel, corvane::Form::UnloadMode mode) { Form_QueryUnload(Cancel, mode); });
  parts_->connections += parts_->form->Unload.Connect([this] { Form_Unload(); });
  parts_->connections += desktop_.Notice.Connect(
      [this](const std::string& text) { parts_->sbStatusBar->SetPanelText(kNoticePanel, text); });
  parts_->connections +=
      parts_->ctlWebBrowser1.NewWindow().Connect([this] { ctlWebBrowser1_NewWindow(); });
  parts_->connections += parts_->ctlWebBrowser1.WindowClosing().Connect([this] { Unload(); });
  parts_->connections += parts_->ctlWebBrowser1.FilesWanted().Connect(
      [this](const FileRequest& request) { Dialogs().ChooseFiles(request); });
  parts_->ctlWebBrowser1.StartWith(first_address_);
  process_.Loaded(shared_from_this());
  Form_Load();
}

std::string frmCorvane::Setting(const std::string& key, const std::string& fallback) const {
  return desktop_.GetSettings().GetSetting(kApplicationTitle, kSettingsSection, key, fallback);
}

void frmCorvane::SaveSetting(const std::string& key, const std::string& value) {
  desktop_.GetSettings().SaveSetting(kApplicationTitle, kSettingsSection, key, value);
}

std::int16_t frmCorvane::PaneChoice(const std::string& key, const std::string& fallback) const {
  return number::to_integer(
      desktop_.GetSettings().GetSetting(kPaneApplication, kSettingsSection, key, fallback));
}

void frmCorvane::Form_Load() {
  ErrorsShown(desktop_.GetMessageBox(), "FormLoad Error: ", [&] {
    corvane::Form& form = *parts_->form;
    parts_->ELAMain->SetLayout(ElasticFrame::Layout::Stack);
    parts_->ELAMain->SetAlign(ElasticFrame::Align::Fill);
    form.SetLeft(number::to_single(Setting("MainLeft", "500")));
    form.SetTop(number::to_single(Setting("MainTop", "350")));
    form.SetWidth(number::to_single(Setting("MainWidth", "8500")));
    form.SetHeight(number::to_single(Setting("MainHeight", "6500")));
    parts_->ctlWebBrowser1.SetStatusBar(parts_->sbStatusBar.get());
    parts_->ctlWebBrowser1.SetSpeechNotify(this);
    LoadSettings();
  });
}

void frmCorvane::LoadSettings() {
  MenuCommands& commands = parts_->commands;
  commands.mnuSideBarContent_Click(PaneChoice("SideBar", "5"));
  commands.mnuTextHistory_Click(PaneChoice("TextHistory", "0"));
  commands.mnuHome_Click(PaneChoice("Home", "3"));
  commands.mnuFocus_Click(PaneChoice("Focus", "3"));
  if (Setting("Speech", "False") == kTrue) commands.mnuSpeech_Click(kSpeechEnable);
  if (Setting("KeyEcho", "False") == kTrue) commands.mnuSpeech_Click(kSpeechKeyEcho);
  commands.mnuRate_Click(number::to_integer(Setting("Rate", "2")));
  commands.mnuPitch_Click(number::to_integer(Setting("Pitch", "2")));
  if (Setting("StatusChange", "False") == kTrue)
    commands.mnuSettings_Click(kSettingsStatusFeedback);
}

void frmCorvane::ISpeechNotify_Say(const std::string& Text, const bool& blnUrgent) {
  ErrorsIgnored([&] {
    if (!Required(parts_).menu.mnuSpeech(kSpeechEnable).Checked()) return;
    Required(Required(service_).gMSAgent()).Say(Text, blnUrgent);
  });
}

void frmCorvane::ISpeechNotify_SayThrough(const std::string& Text, Spoken spoken) {
  ErrorsIgnored([&] {
    if (!Required(parts_).menu.mnuSpeech(kSpeechEnable).Checked()) return spoken(false);
    Required(Required(service_).gMSAgent()).SayThrough(Text, std::move(spoken));
  });
}

// The words are urgent, so that the new page's own do not cut them off.
void frmCorvane::ctlWebBrowser1_NewWindow() {
  ErrorsIgnored([&] { Application(process_).StartBrowser(service_); },
                [&] { Say("New window", true); });
}

void frmCorvane::MainApp_KeyboardEchoStatus(bool blnKeyboardEcho) {
  if (parts_) parts_->menu.mnuSpeech(kSpeechKeyEcho).SetChecked(blnKeyboardEcho);
}

void frmCorvane::Unload() {
  if (parts_) parts_->form->Close(Form::UnloadMode::Code);
}

void frmCorvane::NewWindow() {
  Application application(process_);
  application.StartBrowser(service_);
}

void frmCorvane::ShowStatusBar(bool show) {
  Parts& parts = Required(parts_);
  ErrorsIgnored(
      [&] { parts.sbStatusBar->SetVisible(show); },
      [&] { parts.ctlWebBrowser1.SetStatusBar(show ? parts.sbStatusBar.get() : nullptr); });
}

void frmCorvane::Realign() { Required(parts_).ELAMain->Realign(); }

WindowDialogs& frmCorvane::Dialogs() { return Required(parts_).dialogs; }

std::string frmCorvane::HelpFile() {
  const FileSystem& files = desktop_.GetFileSystem();
  const std::string file = files.ProgramFolder() + files.Separator() + kHelpText;
  if (files.Exists(file)) return file;
  desktop_.GetMessageBox().Show(kHelpMissing, MessageBox::Icon::Exclamation);
  return "";
}

void frmCorvane::CloseByUser() {
  if (parts_) parts_->form->Close(Form::UnloadMode::ControlMenu);
}

void frmCorvane::Form_QueryUnload(bool& Cancel, corvane::Form::UnloadMode UnloadMode) {
  if (UnloadMode != Form::UnloadMode::ControlMenu) return;
  ErrorsIgnored([&] { Cancel = Cancel || !Required(parts_).ctlWebBrowser1.MayClose(); });
}

void frmCorvane::Form_Unload() {
  const auto alive = shared_from_this();
  const corvane::Form& form = *parts_->form;
  ErrorsIgnored([&] { parts_->ctlWebBrowser1.Terminate(); });
  if (form.State() != Form::WindowState::Minimized) {
    ErrorsIgnored([&] { SaveSetting("MainLeft", number::from_single(form.Left())); },
                  [&] { SaveSetting("MainTop", number::from_single(form.Top())); },
                  [&] { SaveSetting("MainWidth", number::from_single(form.Width())); },
                  [&] { SaveSetting("MainHeight", number::from_single(form.Height())); });
  }
  ErrorsIgnored([&] { Required(service_).ReleaseForm(*this); },
                [&] { ISpeechWindow_SetMainApp(nullptr); });
  // A reading or a side bar that let events run may be the one who closed the
  // window: its parts go when nothing stands on them any more.
  const std::shared_ptr<Parts> parts = std::move(parts_);
  parts->connections.Clear();
  ErrorsIgnored([&] { parts->form->Hide(); });
  desktop_.Later([parts, alive] {});
  process_.Unloaded(*this);
}

}  // namespace corvane
