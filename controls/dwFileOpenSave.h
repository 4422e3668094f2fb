#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/error.h"
#include "base/event.h"
#include "platform/desktop.h"
#include "platform/file_dialog.h"

namespace corvane {

inline constexpr int kErrCancelled = kObjectError + 32755;
inline constexpr int kErrInvalidArrayIndex = kObjectError + 381;

/// The dialogs for opening and saving files, with what a plain one does not
/// offer: several files by index, captions of one's own, a hidden Cancel button,
/// a place, an error when the user cancels, messages for failures.
///
/// A dialog does not stop the program: ShowOpen and ShowSave return at once, and
/// what would follow them goes into their argument. Until then, and for as long
/// as no other dialog is shown, the results of the last one stay.
class dwFileOpenSave {
 public:
  /// Called once when the user has closed the dialog; with an error where one is
  /// to be raised. May destroy the component.
  using Closed = std::function<void(const std::optional<RunTimeError>& error)>;

  explicit dwFileOpenSave(Desktop& desktop);
  ~dwFileOpenSave();
  dwFileOpenSave(const dwFileOpenSave&) = delete;
  dwFileOpenSave& operator=(const dwFileOpenSave&) = delete;

  /// Without effect while a dialog is shown.
  void ShowOpen(Closed closed = nullptr) { Show(FileDialog::Kind::Open, std::move(closed)); }
  void ShowSave(Closed closed = nullptr) { Show(FileDialog::Kind::Save, std::move(closed)); }

  std::int16_t FileCount();
  /// The name of a chosen file, counted from 1; RunTimeError outside the list.
  std::string FileNameByIndex(std::int16_t Index);
  std::string FilePath() const;

  /// The chosen file's path; with multiple selection the buffer as it is.
  std::string filename() const;
  void SetFilename(const std::string& name);
  std::string FileTitle() const;
  std::uint32_t Flags() const { return record_.flags; }
  void SetFlags(std::uint32_t flags);
  int MaxFileSize() const { return record_.max_file; }
  void SetMaxFileSize(int size);
  WindowHandle DlgWindowOwner() const { return record_.owner; }
  void SetDlgWindowOwner(WindowHandle window) { record_.owner = window; }
  std::string Filter() const { return record_.filter; }
  void SetFilter(const std::string& filter) { record_.filter = filter; }
  int FilterIndex() const { return record_.filter_index; }
  void SetFilterIndex(int index) { record_.filter_index = index; }
  std::string InitDir() const { return record_.initial_dir; }
  void SetInitDir(const std::string& folder) { record_.initial_dir = folder; }
  std::string DefaultExt() const { return record_.default_extension; }
  void SetDefaultExt(const std::string& extension) { record_.default_extension = extension; }
  std::string DialogTitle() const { return record_.title; }
  void SetDialogTitle(const std::string& title) { record_.title = title; }

  bool CancelError = false;
  int HelpCommand = 3;
  int HelpContext = 0;
  std::string HelpFile;
  std::string HelpKey;
  bool HideCancel = false;
  int PosX = 0;  ///< pixels, as PosY
  int PosY = 0;
  bool SetDialogPosition = false;
  bool SetDialogRelativeToScreen = false;
  bool CustomOkButtonCaption = false;
  std::string OkButtonCaption = "Select";
  bool CustomCancelButtonCaption = false;
  std::string CancelButtonCaption = "Cancel";
  bool RaiseCallbackEvent = false;

  /// Each message of the dialog, when RaiseCallbackEvent is set.
  Event<const DialogMessage&> CallbackMessage;

  /// Asks for dialogs of the old style when it holds 35; one for the process.
  static std::int16_t intOldStyle;

 private:
  void Show(FileDialog::Kind kind, Closed closed);
  void DialogClosed(const FileDialog::Result& result);
  void HookProc(const DialogMessage& message);
  void InitDialog(const DialogMessage& message);
  void OpenHelp();
  bool ExplorerStyle() const;

  Desktop& desktop_;
  OpenFileName record_;
  std::unique_ptr<FileDialog> dialog_;
  Closed closed_;
  bool shown_ = false;
  std::optional<std::int16_t> file_count_;
};

}  // namespace corvane
