#include "app/frmCorvane.h"

#include <exception>

#include "app/Application.h"
#include "app/Multithread.h"
#include "base/handling.h"
#include "base/number.h"
#include "platform/errors_shown.h"
#include "speech/MSAgent.h"
#include "speech/MainApp.h"

namespace corvane {
namespace {

constexpr const char* kHelpText = "cvhelp.txt";
constexpr const char* kHelpMissing =
    "The help text cvhelp.txt was not found. Installing Corvane again brings it back.";
constexpr const char* kTrue = "True";
constexpr int kNoticePanel = 2;       // the first belongs to the pane
constexpr float kMostPixels = 32767;  // that a display can count

}  // namespace

frmCorvane::Parts::Parts(Desktop& desktop, const Manner& manner, MenuCommands::Host& host)
    : form(desktop.CreateForm("frmCorvane")),
      ELAMain(desktop.CreateElasticFrame("ELAMain")),
      sbStatusBar(desktop.CreateStatusBar("sbStatusBar")),
      menu(desktop, manner),
      ctlWebBrowser1(desktop, manner),
      commands(menu, ctlWebBrowser1, manner, host),
      dialogs(desktop, manner, *form),
      help(ctlWebBrowser1, menu, manner),
      keys(*form, commands, ctlWebBrowser1, help) {
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
  } catch (const std::exception&) {
    // A window that nobody can see or hear must not keep the process alive.
    if (parts_) Form_Unload();
    throw;
  }
}

MenuItem& frmCorvane::ISpeechWindow_EnableSpeechItem() {
  return Required(parts_).menu.mnuSpeech(kSpeechEnable);
}

corvane::Form& frmCorvane::ISpeechWindow_Window() { return *Required(parts_).form; }

bool frmCorvane::ISpeechWindow_AnswersKey(int key_code) {
  return parts_ && (parts_->help.IsOn() || parts_->ctlWebBrowser1.StepsInReading(key_code));
}

void frmCorvane::ISpeechWindow_SpeechReady(bool tell_where) {
  ErrorsIgnored([&] { ReportSettings(); },
                [&] {
                  if (tell_where) Required(parts_).ctlWebBrowser1.SayWhereYouAre();
                });
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

void frmCorvane::Form_Load() {
  ErrorsShown(desktop_.GetMessageBox(), "FormLoad Error: ", [&] {
    parts_->ELAMain->SetLayout(ElasticFrame::Layout::Stack);
    parts_->ELAMain->SetAlign(ElasticFrame::Align::Fill);
    Place();
    parts_->ctlWebBrowser1.SetStatusBar(parts_->sbStatusBar.get());
    parts_->ctlWebBrowser1.SetSpeechNotify(this);
    LoadSettings();
  });
  // Else the character reports them when it can be heard.
  const MSAgent* agent = service_ ? service_->gMSAgent() : nullptr;
  if (agent == nullptr || agent->Ready()) ReportSettings();
}

// Places and sizes that no screen has would lose the window.
void frmCorvane::Place() {
  corvane::Form& form = *parts_->form;
  if (FillsScreen()) return form.FillScreen();
  StoredNumbers& stored = process_.Stored();
  const float most = kMostPixels * desktop_.TwipsPerPixel();
  form.SetLeft(stored.Twips("MainLeft", "500", {-most, most}));
  form.SetTop(stored.Twips("MainTop", "350", {-most, most}));
  form.SetWidth(stored.Twips("MainWidth", "8500", {1, most}));
  form.SetHeight(stored.Twips("MainHeight", "6500", {1, most}));
}

// Pages made for today give a narrow window only a part of themselves.
bool frmCorvane::FillsScreen() const {
  const auto stored = [this](const char* key) { return !Setting(key, "").empty(); };
  return process_.Manner().whole_screen && !stored("MainLeft") && !stored("MainTop") &&
         !stored("MainWidth") && !stored("MainHeight");
}

// The echo is one for all windows; another program may have switched it on.
void frmCorvane::TakeOverEcho() {
  const MSAgent* agent = service_ ? service_->gMSAgent() : nullptr;
  if (agent != nullptr && agent->blnKeyboardEcho)
    parts_->menu.mnuSpeech(kSpeechKeyEcho).SetChecked(true);
}

void frmCorvane::ReportSettings() {
  const std::string report = process_.Stored().TakeReport();
  if (!report.empty()) desktop_.GetMessageBox().Show(report, MessageBox::Icon::Exclamation);
}

void frmCorvane::LoadSettings() {
  MenuCommands& commands = parts_->commands;
  const MainMenu& menu = parts_->menu;
  StoredNumbers& stored = process_.Stored();
  const auto pane = [&](const char* key, const char* fallback, const MenuArray& choices) {
    return stored.Choice(kPaneApplication, key, fallback, choices);
  };
  commands.mnuSideBarContent_Click(pane("SideBar", "5", menu.mnuSideBarContent));
  commands.mnuTextHistory_Click(pane("TextHistory", "0", menu.mnuTextHistory));
  commands.mnuHome_Click(pane("Home", "3", menu.mnuHome));
  commands.mnuFocus_Click(pane("Focus", "3", menu.mnuFocus));
  if (process_.Manner().today) TakeOverEcho();
  if (Setting("Speech", "False") == kTrue) commands.mnuSpeech_Click(kSpeechEnable);
  if (Setting("KeyEcho", "False") == kTrue && !menu.mnuSpeech(kSpeechKeyEcho).Checked())
    commands.mnuSpeech_Click(kSpeechKeyEcho);
  commands.mnuRate_Click(stored.Choice(kApplicationTitle, "Rate", "2", menu.mnuRate));
  commands.mnuPitch_Click(stored.Choice(kApplicationTitle, "Pitch", "2", menu.mnuPitch));
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

void frmCorvane::ISpeechNotify_SayBehind(const std::string& Text, Spoken spoken) {
  ErrorsIgnored([&] {
    if (!Required(parts_).menu.mnuSpeech(kSpeechEnable).Checked()) return spoken(false);
    Required(Required(service_).gMSAgent()).SayBehind(Text, std::move(spoken));
  });
}

void frmCorvane::ISpeechNotify_SayAs(const std::string& Text, Whose whose, Sign sign) {
  ErrorsIgnored([&] {
    if (!Required(parts_).menu.mnuSpeech(kSpeechEnable).Checked()) return;
    Required(Required(service_).gMSAgent()).SayAs(Text, whose, sign);
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
  std::string file = files.ProgramFolder() + files.Separator() + kHelpText;
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
