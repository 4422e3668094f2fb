#include "platform/linux/linux_desktop.h"

#include <glib.h>
#include <glibmm/convert.h>
#include <glibmm/miscutils.h>
#include <gtkmm/entry.h>
#include <gtkmm/main.h>

#include <utility>

#include "platform/linux/access/desktop_windows.h"
#include "platform/linux/glib/later.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/gtk/controls/combo_box.h"
#include "platform/linux/gtk/controls/command_button.h"
#include "platform/linux/gtk/controls/image.h"
#include "platform/linux/gtk/controls/image_list.h"
#include "platform/linux/gtk/controls/line.h"
#include "platform/linux/gtk/controls/list_box.h"
#include "platform/linux/gtk/controls/list_view.h"
#include "platform/linux/gtk/controls/status_bar.h"
#include "platform/linux/gtk/controls/text_box.h"
#include "platform/linux/gtk/controls/tree_view.h"
#include "platform/linux/gtk/dialogs/file_dialog.h"
#include "platform/linux/gtk/do_events.h"
#include "platform/linux/gtk/layout/elastic_frame.h"
#include "platform/linux/gtk/layout/form.h"
#include "platform/linux/gtk/layout/rebar_window.h"
#include "platform/linux/gtk/menu/menu.h"
#include "platform/linux/gtk/system_color.h"
#include "platform/linux/gtk/text_pane/rich_text_box.h"
#include "platform/linux/gtk/timer.h"
#include "platform/linux/page_questions.h"
#include "platform/linux/shell/file_shell.h"
#include "platform/linux/speech/linux_agent.h"
#include "platform/linux/store/ini_file.h"
#include "platform/linux/web/files/downloads.h"
#include "platform/linux/web/webkit_browser.h"
#include "web/library/HistoryFolder.h"
#include "web/library/LinkSearch.h"

namespace corvane::desktop {
namespace {

constexpr const char* kApplication = "Corvane";
constexpr const char* kSection = "Settings";
// What other readers call a message; this program does not say it.
constexpr const char* kMessageTitle = "Corvane message";

constexpr const char* kHistory = "History";

// Whether keys go into a field whose text is hidden: one of a page, or a dialog's.
bool IntoPassword() {
  Gtk::Window* window = ActiveWindow();
  Gtk::Widget* focus = window ? window->get_focus() : nullptr;
  if (const auto* entry = dynamic_cast<Gtk::Entry*>(focus)) return !entry->get_visibility();
  const WidgetBinding* binding = WidgetBinding::Focused();
  const auto* page = binding ? dynamic_cast<WebKitBrowser*>(&binding->control()) : nullptr;
  return page && page->InPassword();
}

std::string WithoutCase(const std::string& text) {
  return Taken(g_utf8_casefold(text.c_str(), static_cast<gssize>(text.size())));
}

std::string DataFolder() { return std::string(g_get_user_data_dir()) + "/corvane/"; }

}  // namespace

LinuxDesktop::LinuxDesktop(StartedBy started_by)
    : started_by_(started_by),
      automation_(SessionBus().get()),
      speech_(MakeSpeechOutput()),
      voice_(*speech_),
      makers_(*speech_),
      dialogs_(windows_, SpeakerForDialogs(), SpeakerForDialogs(Asks::Page)),
      dialog_listener_(SpeakerForDialogs()) {
  WindowTable::Entry root;
  root.class_name = "Root";
  root.text = [] { return std::string(kApplication); };
  windows_.Add(std::move(root));
  message_box_ = std::make_unique<MessageBoxQueue>(windows_, kMessageTitle, SpeakerForDialogs());
  // Before the first setting is read: a file that cannot be read is told once.
  connections_ += settings_.Problem.Connect([this](const std::string& text) {
    PostToLoop([this, text] { message_box_->Show(text, MessageBox::Icon::Exclamation); });
  });
  accessibility_ = std::make_unique<LinuxAccessibility>(windows_);
  all_windows_ = std::make_unique<DesktopWindows>(windows_, *accessibility_);
  shell_ = std::make_unique<FileShell>(std::string(g_get_user_data_dir()) + "/corvane");
  alerts_ = std::make_shared<PageAlerts>(windows_, SpeakerForDialogs(Asks::Page));
  engine_ = std::make_unique<WebEngine>(MakeEngineOptions());
  engine_->SetPreferences(EngineChoices::Read(settings_).preferences);
  MakeOptionsDialog();
  MakeDownloadsDialog();
  connections_ += speech_->Notified.Connect([this](const std::string& text) {
    g_message("%s", text.c_str());
    notices_.push_back(text);
    TellNotices();
  });
  connections_ += speech_->Speaking.Connect([this](bool speaks) { Speaking.Raise(speaks); });
  connections_ += makers_.Lost.Connect([this](SpeechMaker maker) { SpeechMakerLost.Raise(maker); });
  connections_ += windows_.TopLevelGone.Connect([this] { QuitWhenNothingIsLeft(); });
  connections_ += message_box_->LastClosed.Connect([this] { QuitWhenNothingIsLeft(); });
}

LinuxDesktop::~LinuxDesktop() = default;

EngineOptions LinuxDesktop::MakeEngineOptions() {
  EngineOptions options;
  options.start_page = [this] { return EngineChoices::Read(settings_).start_page; };
  options.search_service = [this] { return EngineChoices::Read(settings_).search_service; };
  options.dialogs = alerts_;
  options.zoom_changed = [this](int percent) {
    settings_.SaveSetting(kApplication, kSection, "Zoom", std::to_string(percent));
  };
  options.look_at_focus = [this](GtkWidget* view, std::function<void(const FieldFocus&)> seen) {
    accessibility_->ReadFocus(view, std::move(seen));
  };
  options.holds_back_sound = [this] { return page_sound_.HoldsBack(); };
  options.page_sounds = [this] { page_sound_.PageSounds(); };
  options.questions = std::make_shared<PageQuestions>(dialogs_);
  const std::string data = DataFolder();
  const std::string history = data + kHistory;
  visits_ = std::make_shared<HistoryFolder>(history, &ReplaceFile);
  options.page_visited = [visits = visits_](const std::string& address, const std::string& title) {
    visits->Add(address, title);
  };
  options.was_visited = [visits = visits_](const std::string& address) {
    return visits->Knows(address);
  };
  options.find_matches =
      [search = LinkSearch{{data + "Favorites", history}, g_get_home_dir(), &WithoutCase}](
          const std::string& words) { return search.Find(words); };
  return options;
}

void LinuxDesktop::MakeOptionsDialog() {
  EngineOptionsDialog::Engine engine;
  engine.choices = [this] { return EngineChoices::Read(settings_); };
  engine.apply = [this](const EngineChoices& choices) {
    choices.Write(settings_);
    engine_->SetPreferences(choices.preferences);
  };
  engine.clear_history = [this] { visits_->Clear(); };
  engine.clear_cookies = [this] { engine_->ClearSiteData(); };
  engine.clear_cache = [this] { engine_->ClearCache(); };
  permissions_dialog_ = std::make_unique<PermissionsDialog>(
      dialogs_, [this]() -> PermissionBook& { return engine_->Permissions(); });
  engine.show_permissions = [this](std::function<void()> closed) {
    permissions_dialog_->Show(std::move(closed));
  };
  options_dialog_ = std::make_unique<EngineOptionsDialog>(dialogs_, std::move(engine));
}

void LinuxDesktop::MakeDownloadsDialog() {
  DownloadsDialog::Source source;
  source.list = [this] { return engine_->GetDownloads().List(); };
  source.stop = [this](int number) { engine_->GetDownloads().Stop(number); };
  source.open_folder = [this](const std::string& path) {
    const std::string folder = Glib::path_get_dirname(path);
    engine_->Options().programs->Open(
        Glib::filename_to_uri(folder), [this, folder](const std::string& error) {
          if (error.empty()) return;
          message_box_->Show("No program could open the folder " + folder + ".",
                             MessageBox::Icon::Exclamation);
        });
  };
  downloads_dialog_ = std::make_unique<DownloadsDialog>(dialogs_, std::move(source));
}

void LinuxDesktop::AskLabel(const std::string& label,
                            const std::function<void(std::optional<std::string>)>& done) {
  DialogQuestion question;
  question.title = "Rename";
  question.text = "Type a new name for " + label + " and press Enter.";
  question.fields = {{.label = "&Name", .value = label}};
  dialogs_.Ask(std::move(question), [done](const DialogAnswer& answer) {
    done(answer.button == 0 ? std::optional(answer.values.at(0)) : std::nullopt);
  });
}

Speaker LinuxDesktop::SpeakerForDialogs(Asks asks) {
  return [this, asks](const std::string& text, GtkWindow* dialog) {
    if (speak_dialog_) speak_dialog_({text, windows_.WindowOf(dialog), asks == Asks::Page});
  };
}

std::unique_ptr<Form> LinuxDesktop::CreateForm(const std::string& name) {
  return std::make_unique<FormWindow>(name, windows_);
}
std::unique_ptr<Menu> LinuxDesktop::CreateMenu() { return std::make_unique<MenuRoot>(); }
std::unique_ptr<ElasticFrame> LinuxDesktop::CreateElasticFrame(const std::string& name) {
  return std::make_unique<ElasticFrameControl>(name, windows_);
}
std::unique_ptr<ComboBox> LinuxDesktop::CreateComboBox(const std::string& name,
                                                       ComboBox::Style style) {
  return ComboBoxControl::Create(name, style, windows_);
}
std::unique_ptr<CommandButton> LinuxDesktop::CreateCommandButton(const std::string& name) {
  return std::make_unique<CommandButtonControl>(name, windows_);
}
std::unique_ptr<StatusBar> LinuxDesktop::CreateStatusBar(const std::string& name) {
  return std::make_unique<StatusBarControl>(name, windows_);
}
std::unique_ptr<RichTextBox> LinuxDesktop::CreateRichTextBox(const std::string& name) {
  return std::make_unique<RichTextBoxControl>(name, windows_);
}
std::unique_ptr<ListBox> LinuxDesktop::CreateListBox(const std::string& name) {
  return std::make_unique<ListBoxControl>(name, windows_);
}
std::unique_ptr<TextBox> LinuxDesktop::CreateTextBox(const std::string& name) {
  return std::make_unique<TextBoxControl>(name, windows_);
}
std::unique_ptr<TreeView> LinuxDesktop::CreateTreeView(const std::string& name) {
  return std::make_unique<TreeViewControl>(
      name, windows_, [this](const std::string& label, auto done) { AskLabel(label, done); });
}
std::unique_ptr<ListView> LinuxDesktop::CreateListView(const std::string& name) {
  return std::make_unique<ListViewControl>(name, windows_);
}
std::unique_ptr<ImageList> LinuxDesktop::CreateImageList() {
  return std::make_unique<PixbufList>();
}
std::unique_ptr<WebBrowser> LinuxDesktop::CreateWebBrowser(const std::string& name) {
  return std::make_unique<WebKitBrowser>(name, *engine_, windows_);
}
std::unique_ptr<Timer> LinuxDesktop::CreateTimer() { return std::make_unique<LoopTimer>(); }
std::unique_ptr<RebarWindow> LinuxDesktop::CreateRebarWindow(ElasticFrame& parent,
                                                             std::uint32_t style, int width,
                                                             int height) {
  return std::make_unique<RebarControl>(parent, style, width, height, windows_);
}
std::unique_ptr<Agent> LinuxDesktop::CreateAgent() {
  return std::make_unique<LinuxAgent>(*speech_);
}
std::unique_ptr<ActivationHook> LinuxDesktop::CreateActivationHook() {
  return std::make_unique<TableActivationHook>(windows_);
}
std::unique_ptr<KeyboardHook> LinuxDesktop::CreateKeyboardHook() {
  return std::make_unique<LinuxKeyboardHook>(hooks_, &IntoPassword);
}
std::unique_ptr<MessageHook> LinuxDesktop::CreateMessageHook() {
  return std::make_unique<LinuxMessageHook>(hooks_);
}

Shell& LinuxDesktop::GetShell() { return *shell_; }
std::unique_ptr<FileDialog> LinuxDesktop::CreateFileDialog() {
  return std::make_unique<GtkFileDialog>(windows_, dialogs_, SpeakerForDialogs());
}

std::unique_ptr<Image> LinuxDesktop::CreateImage(const std::string& name) {
  return std::make_unique<ImageControl>(name, windows_);
}
std::unique_ptr<Line> LinuxDesktop::CreateLine(const std::string& name) {
  return std::make_unique<LineControl>(name, windows_);
}

Accessibility& LinuxDesktop::GetAccessibility() { return *accessibility_; }

void LinuxDesktop::DoEvents() { pending_events_.Run(); }

void LinuxDesktop::Pause(int milliseconds) { RunEventsFor(milliseconds); }

void LinuxDesktop::Later(std::function<void()> action) {
  PostWhenNothingIsUnderWay(std::move(action));
}

float LinuxDesktop::TwipsPerPixel() const { return kTwipsPerPixel; }

std::uint32_t LinuxDesktop::SysColor(SystemColor index) const { return ThemeColor(index); }

bool LinuxDesktop::StartedByAutomation() const { return started_by_ == StartedBy::Automation; }

// Boxes and dialogs may still be open; what the windows put off till later comes first.
void LinuxDesktop::End() {
  Ending.Raise();
  PostWhenNothingIsUnderWay([] {
    if (gtk_main_level() > 0) gtk_main_quit();
  });
}

void LinuxDesktop::QuitWhenNothingIsLeft() {
  if (running_ && windows_.TopLevelCount() <= 1 && !message_box_->AnyOpen()) gtk_main_quit();
}

// Before the program runs there is nobody to tell.
void LinuxDesktop::TellNotices() {
  if (!running_) return;
  for (const auto& text : std::exchange(notices_, {})) Notice.Raise(text);
}

void LinuxDesktop::Run() {
  running_ = windows_.TopLevelCount() > 1 || message_box_->AnyOpen();
  TellNotices();
  if (running_) gtk_main();
  running_ = false;
}

void LinuxDesktop::ShowEscapedError() {
  try {
    throw;
  } catch (const std::exception& error) {
    g_warning("An error reached the event loop: %s", error.what());
    message_box_->Show(std::string("Error: ") + error.what(), MessageBox::Icon::Critical);
  }
}

}  // namespace corvane::desktop
