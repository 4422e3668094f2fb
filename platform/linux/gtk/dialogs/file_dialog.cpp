#include "platform/linux/gtk/dialogs/file_dialog.h"

#include <atkmm/object.h>
#include <gdk/gdkkeysyms.h>
#include <glibmm/fileutils.h>
#include <glibmm/miscutils.h>
#include <gtkmm/button.h>
#include <gtkmm/label.h>
#include <gtkmm/windowgroup.h>

#include <utility>

#include "platform/linux/glib/later.h"
#include "platform/linux/gtk/dialogs/chooser_keys.h"
#include "platform/linux/gtk/dialogs/chosen_files.h"
#include "platform/linux/gtk/dialogs/dialog_listener.h"
#include "platform/linux/gtk/dialogs/focus_words.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr std::int32_t kBufferTooSmall = 12291;

std::string NameOf(const std::string& path) { return Glib::filename_display_basename(path); }

bool IsFolder(const std::string& path) { return Glib::file_test(path, Glib::FILE_TEST_IS_DIR); }

std::string UpToNul(const std::string& buffer) { return buffer.substr(0, buffer.find('\0')); }

struct Words {
  Gtk::FileChooserAction action;
  const char* title;
  const char* accept;
};

const Words& WordsOf(FileDialog::Kind kind) {
  static constexpr Words kOpen = {Gtk::FILE_CHOOSER_ACTION_OPEN, "Open", "_Open"};
  static constexpr Words kSave = {Gtk::FILE_CHOOSER_ACTION_SAVE, "Save As", "_Save"};
  static constexpr Words kFolder = {Gtk::FILE_CHOOSER_ACTION_SELECT_FOLDER, "Choose a folder",
                                    "C_hoose"};
  switch (kind) {
    case FileDialog::Kind::Open:
      return kOpen;
    case FileDialog::Kind::Save:
      return kSave;
    case FileDialog::Kind::Folder:
      break;
  }
  return kFolder;
}

}  // namespace

GtkFileDialog::GtkFileDialog(WindowTable& windows, SpokenDialogs& questions, Speaker speak)
    : windows_(windows), questions_(questions), speak_(std::move(speak)) {}

GtkFileDialog::~GtkFileDialog() {
  life_.End();
  if (question_ != 0) questions_.Withdraw(question_);
  windows_.Remove(hook_window_);
  windows_.Remove(handle_);
}

void GtkFileDialog::Show(Kind kind, const OpenFileName& record,
                         std::function<void(const DialogMessage&)> hook,
                         std::function<void(const Result&)> done) {
  kind_ = kind;
  record_ = record;
  hook_ = std::move(hook);
  done_ = std::move(done);
  introduced_ = false;
  folder_said_.clear();
  selection_said_.clear();
  problem_ = nullptr;
  Make();
  SetUp();
  EnterInTable();
  Connect();
  TellHook(kWmInitDialog);
  PostToLoop([this, here = life_.Look()] {
    if (here && dialog_) Present();
  });
}

void GtkFileDialog::Make() {
  const Words& words = WordsOf(kind_);
  const Glib::ustring title =
      record_.title.empty() ? Glib::ustring(words.title) : Valid(record_.title);
  dialog_ = std::make_unique<Gtk::FileChooserDialog>(title, words.action);
  MarkAsSpeaking(GTK_WIDGET(dialog_->gobj()));
  if ((record_.flags & kShowHelp) != 0) dialog_->add_button("_Help", kHelpResponse);
  dialog_->add_button("_Cancel", Gtk::RESPONSE_CANCEL);
  dialog_->add_button(words.accept, Gtk::RESPONSE_OK);
  dialog_->set_default_response(Gtk::RESPONSE_OK);
  dialog_->get_accessible()->set_name(title);
  dialog_->set_modal(true);
  dialog_->set_local_only(true);
  if (auto* owner = dynamic_cast<Gtk::Window*>(windows_.WidgetOf(record_.owner))) {
    dialog_->set_transient_for(*owner);
    owner->get_group()->add_window(*dialog_);  // other windows go on
  }
}

void GtkFileDialog::SetUp() {
  dialog_->set_select_multiple(kind_ == Kind::Open && (record_.flags & kAllowMultiSelect) != 0);
  AddFilters();
  if (!record_.initial_dir.empty()) dialog_->set_current_folder(record_.initial_dir);
  const std::string name = UpToNul(record_.file);
  if (name.empty()) return;
  const bool whole = Glib::path_is_absolute(name);
  if (kind_ != Kind::Save) {
    dialog_->set_filename(whole ? name : Glib::build_filename(record_.initial_dir, name));
  } else {
    if (whole) dialog_->set_current_folder(Glib::path_get_dirname(name));
    dialog_->set_current_name(Valid(whole ? Glib::path_get_basename(name) : name));
  }
}

void GtkFileDialog::AddFilters() {
  int index = 0;
  for (const auto& [description, patterns] : FilterPairs(record_.filter)) {
    const auto filter = Gtk::FileFilter::create();
    filter->set_name(Valid(description));
    std::string pattern;
    for (const char c : patterns + ";") {
      if (c != ';') {
        pattern += c;
      } else if (!pattern.empty()) {
        const auto one = Valid(std::exchange(pattern, {}));
        one.find('/') == Glib::ustring::npos ? filter->add_pattern(one)
                                             : filter->add_mime_type(one);
      }
    }
    dialog_->add_filter(filter);
    if (++index == std::max(record_.filter_index, 1)) dialog_->set_filter(filter);
  }
}

void GtkFileDialog::EnterInTable() {
  WindowTable::Entry entry;
  entry.class_name = "FileDialog";
  entry.text = [this] { return dialog_ ? dialog_->get_title().raw() : std::string(); };
  entry.close = [this] { Response(Gtk::RESPONSE_CANCEL); };
  entry.widget = dialog_.get();
  handle_ = windows_.Add(std::move(entry));
  if ((record_.flags & kExplorerStyle) == 0) return;
  WindowTable::Entry child;
  child.class_name = "FileDialogHook";
  child.parent = handle_;
  child.child = true;
  hook_window_ = windows_.Add(std::move(child));
}

void GtkFileDialog::Connect() {
  dialog_->signal_response().connect([this, here = life_.Look()](int response) {
    if (here) Response(response);
  });
  dialog_->signal_key_press_event().connect(
      [this, here = life_.Look()](GdkEventKey* event) { return here && KeyDown(*event); }, false);
  dialog_->signal_set_focus().connect([this, here = life_.Look()](Gtk::Widget*) {
    if (here) FocusMoved();
  });
  dialog_->signal_selection_changed().connect([this, here = life_.Look()] {
    if (here) SelectionChanged();
  });
  dialog_->signal_current_folder_changed().connect([this, here = life_.Look()] {
    if (here) FolderChanged();
  });
  dialog_->property_is_active().signal_changed().connect([this, here = life_.Look()] {
    if (!here || !dialog_ || !dialog_->property_is_active()) return;
    windows_.WindowActivated.Raise(handle_);
    introduced_ = true;
    Say(Where());
  });
}

void GtkFileDialog::Present() { dialog_->present(); }

void GtkFileDialog::TellHook(int message, int control, int code) {
  if (hook_) hook_({hook_window_ != 0 ? hook_window_ : handle_, message, control, code});
}

void GtkFileDialog::Response(int response) {
  if (!done_) return;
  const auto here = life_.Look();
  if (response == kHelpResponse) {
    const bool explorer = (record_.flags & kExplorerStyle) != 0;
    return explorer ? TellHook(kWmNotify, 0, kNotifyHelp) : TellHook(kWmCommand, kDialogHelp);
  }
  const bool ok = response == Gtk::RESPONSE_OK;
  TellHook(kWmCommand, ok ? kDialogOk : kDialogCancel);
  if (!here || !done_) return;
  if (ok) {
    Accept();
  } else {
    Finish({});
  }
}

void GtkFileDialog::Accept() {
  std::vector<std::string> paths;
  for (const auto& path : dialog_->get_filenames()) {
    paths.push_back(WithExtension(path, kind_ == Kind::Save ? record_.default_extension : ""));
  }
  const std::string refusal = Refusal(kind_, record_.flags, paths);
  if (!refusal.empty()) return Say(refusal);
  const std::string& path = paths.front();
  if (kind_ == Kind::Save && Glib::file_test(path, Glib::FILE_TEST_EXISTS) &&
      (record_.flags & kOverwritePrompt) != 0) {
    return AskToReplace(path, paths);
  }
  Result result{true, 0, record_};
  if (!FillChosen(result.record, paths)) result = {false, kBufferTooSmall, {}};
  Finish(std::move(result));
}

void GtkFileDialog::AskToReplace(const std::string& path, const std::vector<std::string>& paths) {
  question_ = questions_.Ask(
      {.title = "Replace",
       .text = NameOf(path) + " is there already. Replace it?",
       .buttons = {"&Yes", "&No"},
       .default_button = 1},
      [this, here = life_.Look(), paths](const DialogAnswer& answer) {
        if (!here) return;
        question_ = 0;
        if (answer.button != 0 || !done_) return;
        Result result{true, 0, record_};
        if (!FillChosen(result.record, paths)) result = {false, kBufferTooSmall, {}};
        Finish(std::move(result));
      },
      dialog_.get());
}

void GtkFileDialog::Finish(Result result) {
  const auto done = std::exchange(done_, nullptr);
  if (result.chosen) {
    const auto filters = dialog_->list_filters();
    const auto at = std::find(filters.begin(), filters.end(), dialog_->get_filter());
    if (at != filters.end()) {
      result.record.filter_index = static_cast<int>(at - filters.begin()) + 1;
    }
  }
  dialog_->hide();
  // It may be in the middle of telling that it was answered.
  PostToLoop([dialog = std::shared_ptr<Gtk::FileChooserDialog>(std::move(dialog_))] {});
  windows_.Remove(std::exchange(hook_window_, 0));
  windows_.Remove(std::exchange(handle_, 0));
  hook_ = nullptr;
  done(result);
}

WindowHandle GtkFileDialog::Parent(WindowHandle window) const { return windows_.Parent(window); }

FileDialog::Rect GtkFileDialog::WindowRect(WindowHandle window) const {
  Rect place;
  auto* top = dynamic_cast<Gtk::Window*>(windows_.WidgetOf(window));
  if (!top) return place;
  top->get_position(place.left, place.top);
  top->get_size(place.width, place.height);
  return place;
}

void GtkFileDialog::MoveWindow(WindowHandle window, const Rect& place) {
  auto* top = dynamic_cast<Gtk::Window*>(windows_.WidgetOf(window));
  if (!top) return;
  top->set_position(Gtk::WIN_POS_NONE);
  top->move(place.left, place.top);
}

Gtk::Button* GtkFileDialog::ButtonOf(int control) const {
  if (!dialog_) return nullptr;
  const int response = control == kDialogOk       ? static_cast<int>(Gtk::RESPONSE_OK)
                       : control == kDialogCancel ? static_cast<int>(Gtk::RESPONSE_CANCEL)
                                                  : kHelpResponse;
  return dynamic_cast<Gtk::Button*>(dialog_->get_widget_for_response(response));
}

void GtkFileDialog::HideControl(WindowHandle dialog, int control) {
  auto* button = dialog == handle_ ? ButtonOf(control) : nullptr;
  if (button) button->hide();
}

void GtkFileDialog::SetControlText(WindowHandle dialog, int control, const std::string& text) {
  auto* button = dialog == handle_ ? ButtonOf(control) : nullptr;
  if (!button) return;
  button->set_use_underline(true);
  button->set_label(WithMnemonic(text));
}

void GtkFileDialog::OpenHelp(const std::string& file, int /*command*/,
                             const std::string& /*topic*/) {
  const std::string uri = Glib::path_is_absolute(file) ? Glib::filename_to_uri(file).raw() : file;
  if (gtk_show_uri_on_window(nullptr, uri.c_str(), GDK_CURRENT_TIME, nullptr)) return;
  Say("The help file " + file + " cannot be shown");
}

bool GtkFileDialog::KeyDown(const GdkEventKey& event) {
  if (event.keyval == GDK_KEY_Escape) {
    Response(Gtk::RESPONSE_CANCEL);
    return true;
  }
  if (event.keyval == GDK_KEY_F1) {
    if ((record_.flags & kShowHelp) != 0) {
      Response(kHelpResponse);
    } else {
      Say(Where());
    }
    return true;
  }
  return ChooserTakesKey(GTK_WINDOW(dialog_->gobj()), event);
}

void GtkFileDialog::FocusMoved() {
  if (!introduced_ || !dialog_) return;
  Say(WordsOfFocus());
  ListenToNewFolder();
}

// The toolkit only shows why it does not take a name.
void GtkFileDialog::ListenToNewFolder() {
  GtkLabel* label = NewFolderProblem(GTK_WINDOW(dialog_->gobj()));
  if (label == nullptr || label == std::exchange(problem_, label)) return;
  Glib::wrap(label)->property_label().signal_changed().connect([this, here = life_.Look(), label] {
    if (here) Say(gtk_label_get_text(label));
  });
}

// The toolkit tells of one change several times.
void GtkFileDialog::SelectionChanged() {
  if (!introduced_ || !dialog_) return;
  const std::string selected = Selected();
  if (selected == std::exchange(selection_said_, selected) || selected.empty()) return;
  Say(selected);
}

void GtkFileDialog::FolderChanged() {
  if (!dialog_) return;
  const std::string folder = dialog_->get_current_folder();
  if (folder == std::exchange(folder_said_, folder) || folder.empty() || !introduced_) return;
  selection_said_.clear();
  Say("Folder " + NameOf(folder));
}

// Only asked while the list of files has the focus: the toolkit ends the program
// when it is asked in the middle of showing its entry for a path.
std::string GtkFileDialog::Selected() const {
  auto* focus = dialog_->get_focus();
  if (!focus || !GTK_IS_TREE_VIEW(focus->gobj())) return "";
  const auto paths = dialog_->get_filenames();
  if (paths.empty()) return "";
  if (paths.size() > 1) return std::to_string(paths.size()) + " files chosen";
  return NameOf(paths.front()) + (IsFolder(paths.front()) ? ", folder" : "");
}

std::string GtkFileDialog::WordsOfFocus() const {
  auto* focus = dialog_->get_focus();
  if (!focus) return "";
  const std::string selected = Selected();
  return FocusWords(*focus) + (selected.empty() ? "" : ", " + selected);
}

std::string GtkFileDialog::Where() const {
  std::string words = dialog_->get_title() + ". ";
  const std::string folder = dialog_->get_current_folder();
  if (!folder.empty()) words += "Folder " + NameOf(folder) + ". ";
  return words + WordsOfFocus();
}

void GtkFileDialog::Say(const std::string& text) const {
  if (speak_ && dialog_ && !text.empty()) speak_(text, GTK_WINDOW(dialog_->gobj()));
}

}  // namespace corvane::desktop
