#include "app/WindowDialogs.h"

#include <utility>
#include <vector>

#include "app/frmAbout.h"
#include "controls/dwFileOpenSave.h"

namespace corvane {
namespace {

constexpr const char* kPageFilter = "HyperText Markup Language (*.htm,*.html)|*.htm*";
constexpr std::uint32_t kOpenFlags =
    kLongNames | kExplorerStyle | kFileMustExist | kEnableHook | kNoChangeDir | kHideReadOnly;
static_assert(kOpenFlags == 0x28102C);
constexpr std::uint32_t kSaveFlags = kLongNames | kExplorerStyle | kPathMustExist |
                                     kOverwritePrompt | kEnableHook | kNoChangeDir | kHideReadOnly;
constexpr int kRoomForNames = 0x10000;  // characters; several files of long names

/// What the user has chosen. A dialog that has failed still holds the name that was
/// proposed, but no title.
std::vector<std::string> ChosenPaths(dwFileOpenSave& dialog, char separator) {
  if ((dialog.Flags() & kAllowMultiSelect) == 0) {
    if (dialog.FileTitle().empty()) return {};
    return {dialog.filename()};
  }
  if (dialog.filename().front() == '\0') return {};
  std::string folder = dialog.FilePath();
  if (!folder.empty() && folder.back() != separator) folder += separator;
  std::vector<std::string> paths;
  for (std::int16_t i = 1; i <= dialog.FileCount(); ++i) {
    paths.push_back(folder + dialog.FileNameByIndex(i));
  }
  return paths;
}

}  // namespace

WindowDialogs::WindowDialogs(Desktop& desktop, const Manner& manner, Form& owner)
    : desktop_(desktop), manner_(manner), owner_(owner) {}

WindowDialogs::~WindowDialogs() = default;

std::unique_ptr<dwFileOpenSave> WindowDialogs::NewFileDialog() const {
  auto dialog = std::make_unique<dwFileOpenSave>(desktop_);
  dialog->SetDlgWindowOwner(owner_.hwnd());
  dialog->SetDialogPosition = true;
  return dialog;
}

void WindowDialogs::OpenFile(std::function<void(const std::string& path)> chosen) {
  if (files_) return;
  files_ = NewFileDialog();
  files_->SetFlags(kOpenFlags);
  files_->SetMaxFileSize(kRoomForNames);
  files_->SetFilter(kPageFilter);
  files_->ShowOpen([this, chosen = std::move(chosen)](const auto&) {
    const auto dialog = std::move(files_);
    const std::string path = dialog->filename();
    if (!path.empty()) chosen(path);
  });
}

void WindowDialogs::ChooseFiles(const FileRequest& request) {
  if (files_) return;
  const bool save = request.kind == FileRequest::Kind::Save;
  files_ = NewFileDialog();
  files_->SetFlags(save              ? kSaveFlags
                   : request.several ? kOpenFlags | kAllowMultiSelect
                                     : kOpenFlags);
  files_->SetMaxFileSize(kRoomForNames);
  if (!request.several && !request.name.empty()) files_->SetFilename(request.name);
  files_->SetFilter(request.filter);
  files_->SetDialogTitle(request.title);
  files_->SetDefaultExt(request.default_extension);
  files_->CancelError = true;
  const auto closed = [this,
                       chosen = request.chosen](const std::optional<RunTimeError>& cancelled) {
    const auto dialog = std::move(files_);
    const char separator = desktop_.GetFileSystem().Separator();
    chosen(cancelled ? std::vector<std::string>() : ChosenPaths(*dialog, separator));
  };
  save ? files_->ShowSave(closed) : files_->ShowOpen(closed);
}

void WindowDialogs::ShowAbout(std::shared_ptr<MainApp> service) {
  if (about_) return;
  about_ = std::make_unique<frmAbout>(desktop_, manner_);
  about_->CallBackInit(std::move(service));
  about_->unloaded = [this] { about_.reset(); };
  about_->ShowModal(owner_);
}

}  // namespace corvane
