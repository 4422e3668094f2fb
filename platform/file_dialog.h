#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/control.h"

namespace corvane {

/// Flags of OpenFileName that the program or the dialog looks at.
enum FileDialogFlags : std::uint32_t {
  kOverwritePrompt = 0x2,
  kHideReadOnly = 0x4,
  kNoChangeDir = 0x8,
  kShowHelp = 0x10,
  kEnableHook = 0x20,
  kEnableTemplate = 0x40,
  kEnableTemplateHandle = 0x80,
  kAllowMultiSelect = 0x200,
  kPathMustExist = 0x800,
  kFileMustExist = 0x1000,
  kExplorerStyle = 0x80000,
  kLongNames = 0x200000,
};

/// Messages that a dialog sends to its hook.
enum DialogMessageNumber : int { kWmNotify = 78, kWmInitDialog = 272, kWmCommand = 273 };
/// Notification codes and control numbers of a file dialog.
inline constexpr int kNotifyHelp = -605;
enum DialogControl : int { kDialogOk = 1, kDialogCancel = 2, kDialogHelp = 1038 };

/// The record by which a file dialog is asked for, and which it fills. Texts are
/// UTF-8; buffers are filled up with NUL, their capacity counts characters.
struct OpenFileName {
  WindowHandle owner = 0;
  /// Description and pattern in turn, divided by "|"; a pattern may be several,
  /// divided by ";". One with a slash is a type of content ("text/plain", "image/*").
  std::string filter;
  int filter_index = 0;  ///< counts from 1; 0 is the first, too
  std::string file;      ///< a name to begin with; then what was chosen
  int max_file = 260;
  std::string file_title;  ///< the chosen file's name without its folder
  int max_file_title = 260;
  std::string initial_dir;
  std::string title;  ///< empty: the desktop's own
  std::uint32_t flags = 0;
  std::int16_t file_offset = 0;  ///< of the first name in `file`, from 0
  std::int16_t file_extension = 0;
  std::string default_extension;
};

/// What a dialog tells its hook.
struct DialogMessage {
  /// The hook's window: a child of the dialog in the Explorer style, otherwise
  /// the dialog itself.
  WindowHandle window = 0;
  int message = 0;  ///< DialogMessageNumber, or another of the desktop's
  int control = 0;  ///< the control of a command
  int code = 0;     ///< of a notification
};

/// The desktop's dialogs for choosing files.
class FileDialog {
 public:
  enum class Kind { Open, Save, Folder };
  struct Rect {
    int left = 0, top = 0, width = 0, height = 0;  ///< pixels of the screen
  };
  struct Result {
    bool chosen = false;
    /// Not chosen: why the dialog failed; 0 when the user cancelled.
    std::int32_t extended_error = 0;
    OpenFileName record;  ///< chosen: the record as the dialog has filled it
  };

  FileDialog() = default;
  FileDialog(const FileDialog&) = delete;
  FileDialog& operator=(const FileDialog&) = delete;
  virtual ~FileDialog() = default;

  /// Shows the dialog in front of its owner, which takes no input meanwhile; other
  /// windows go on. Returns at once. `hook` (may be empty) gets the dialog's
  /// messages; `done` is called once, when it is closed, never from inside this
  /// call, and may destroy this object. Destroying it earlier closes the dialog
  /// and calls nothing.
  virtual void Show(Kind kind, const OpenFileName& record,
                    std::function<void(const DialogMessage&)> hook,
                    std::function<void(const Result&)> done) = 0;

  // For the hook, while the dialog is there. A window that is not is left alone.
  virtual WindowHandle Parent(WindowHandle window) const = 0;
  virtual Rect WindowRect(WindowHandle window) const = 0;
  virtual void MoveWindow(WindowHandle window, const Rect& place) = 0;
  virtual void HideControl(WindowHandle dialog, int control) = 0;
  virtual void SetControlText(WindowHandle dialog, int control, const std::string& text) = 0;
  /// Opens a help file; `topic` is a number for most commands, a word for some.
  virtual void OpenHelp(const std::string& file, int command, const std::string& topic) = 0;
};

}  // namespace corvane
