#include "controls/dwFileOpenSave.h"

#include <algorithm>
#include <utility>

#include "controls/FileDialogErrors.h"
#include "controls/FileNameList.h"

namespace corvane {
namespace {

constexpr std::size_t kBufferLength = 259;
constexpr std::size_t kMultiBufferLength = 4096;
constexpr int kMultiCapacity = 4095;
constexpr std::int16_t kOldStyleOn = 35;
/// Help commands whose topic is a word: a key, a partial key, a macro.
constexpr int kHelpKey = 0x101;
constexpr int kHelpMacro = 0x102;
constexpr int kHelpPartialKey = 0x105;

std::string UpToNul(const std::string& buffer) { return buffer.substr(0, buffer.find('\0')); }

}  // namespace

std::int16_t dwFileOpenSave::intOldStyle = 0;

dwFileOpenSave::dwFileOpenSave(Desktop& desktop) : desktop_(desktop) {
  record_.file.assign(kBufferLength, '\0');
  record_.file_title.assign(kBufferLength, '\0');
  record_.initial_dir = desktop.GetFileSystem().CurrentFolder();
  record_.flags = kEnableHook;
}

dwFileOpenSave::~dwFileOpenSave() = default;

void dwFileOpenSave::SetFlags(std::uint32_t flags) {
  record_.flags = flags & ~static_cast<std::uint32_t>(kEnableTemplate | kEnableTemplateHandle);
  if ((flags & kAllowMultiSelect) == 0) return;
  record_.file.assign(kMultiBufferLength, '\0');
  record_.max_file = kMultiCapacity;
}

void dwFileOpenSave::SetMaxFileSize(int size) {
  record_.max_file = size;
  const auto wanted = static_cast<std::size_t>(std::max(size, 0));
  if (record_.file.size() < wanted) record_.file.resize(wanted, '\0');
}

std::string dwFileOpenSave::filename() const {
  return (record_.flags & kAllowMultiSelect) != 0 ? record_.file : UpToNul(record_.file);
}

void dwFileOpenSave::SetFilename(const std::string& name) {
  record_.file = name;
  const auto capacity = static_cast<std::size_t>(std::max(record_.max_file, 1)) - 1;
  if (record_.file.size() < capacity) record_.file.resize(capacity, '\0');
}

std::string dwFileOpenSave::FileTitle() const { return UpToNul(record_.file_title); }

bool dwFileOpenSave::ExplorerStyle() const {
  return (record_.flags & kExplorerStyle) != 0 && intOldStyle != kOldStyleOn;
}

void dwFileOpenSave::Show(FileDialog::Kind kind, Closed closed) {
  if (shown_) return;
  if (intOldStyle == kOldStyleOn) record_.flags &= ~static_cast<std::uint32_t>(kExplorerStyle);
  std::function<void(const DialogMessage&)> hook;
  if ((record_.flags & kEnableHook) != 0) {
    hook = [this](const DialogMessage& message) { HookProc(message); };
  }
  shown_ = true;
  closed_ = std::move(closed);
  if (!dialog_) dialog_ = desktop_.CreateFileDialog();
  dialog_->Show(kind, record_, std::move(hook),
                [this](const FileDialog::Result& result) { DialogClosed(result); });
}

void dwFileOpenSave::DialogClosed(const FileDialog::Result& result) {
  shown_ = false;
  std::optional<RunTimeError> error;
  if (result.chosen) {
    const std::uint32_t asked = record_.flags;
    record_ = result.record;
    record_.flags = asked;
  } else if (result.extended_error != 0) {
    const std::string message = FileDialogMessage(result.extended_error);
    if (!message.empty()) {
      desktop_.GetMessageBox().Show(message, MessageBox::Icon::Exclamation);
    }
  } else if (CancelError) {
    error.emplace(kErrCancelled, "dwOpenSave", "Cancel was selected.");
  }
  file_count_.reset();
  const Closed closed = std::exchange(closed_, nullptr);
  if (closed) closed(error);
}

void dwFileOpenSave::HookProc(const DialogMessage& message) {
  switch (message.message) {
    case kWmInitDialog:
      InitDialog(message);
      break;
    case kWmCommand:
      if (message.control == kDialogHelp) OpenHelp();
      break;
    case kWmNotify:
      if (ExplorerStyle() && message.code == kNotifyHelp) OpenHelp();
      break;
    default:
      break;
  }
  if (RaiseCallbackEvent) CallbackMessage.Raise(message);
}

void dwFileOpenSave::InitDialog(const DialogMessage& message) {
  const WindowHandle window = ExplorerStyle() ? dialog_->Parent(message.window) : message.window;
  if (SetDialogPosition) {
    FileDialog::Rect place = dialog_->WindowRect(window);
    place.left = PosX;
    place.top = PosY;
    if (!SetDialogRelativeToScreen) {
      const FileDialog::Rect owner = dialog_->WindowRect(record_.owner);
      place.left += owner.left;
      place.top += owner.top;
    }
    dialog_->MoveWindow(window, place);
  }
  if (!ExplorerStyle()) return;
  if (HideCancel) dialog_->HideControl(window, kDialogCancel);
  if (CustomOkButtonCaption) dialog_->SetControlText(window, kDialogOk, OkButtonCaption);
  if (CustomCancelButtonCaption) {
    dialog_->SetControlText(window, kDialogCancel, CancelButtonCaption);
  }
}

void dwFileOpenSave::OpenHelp() {
  if (HelpFile.empty()) return;
  const bool word =
      HelpCommand == kHelpKey || HelpCommand == kHelpMacro || HelpCommand == kHelpPartialKey;
  dialog_->OpenHelp(HelpFile, HelpCommand, word ? HelpKey : std::to_string(HelpContext));
}

std::int16_t dwFileOpenSave::FileCount() {
  if (!file_count_) {
    file_count_ = FileNameList(record_, desktop_.GetFileSystem().Separator()).Count();
  }
  return *file_count_;
}

std::string dwFileOpenSave::FileNameByIndex(std::int16_t Index) {
  if (Index < 1 || Index > FileCount()) {
    throw RunTimeError(kErrInvalidArrayIndex, "dwFileOpenSave", "Invalid property-array index.");
  }
  return FileNameList(record_, desktop_.GetFileSystem().Separator()).Name(Index);
}

std::string dwFileOpenSave::FilePath() const {
  return FileNameList(record_, desktop_.GetFileSystem().Separator()).Folder();
}

}  // namespace corvane
