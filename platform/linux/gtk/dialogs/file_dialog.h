#pragma once

#include <gtkmm/filechooserdialog.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/life.h"
#include "platform/file_dialog.h"
#include "platform/linux/gtk/dialogs/speaker.h"
#include "platform/linux/gtk/dialogs/spoken_dialogs.h"
#include "platform/linux/gtk/window_table.h"

namespace corvane::desktop {

/// A FileDialog over GTK's file chooser that speaks: its title, the folder it
/// shows, the file or folder that is chosen, each control that gets the focus, and
/// why a choice cannot be taken. Escape leaves it, also when its Cancel button is
/// hidden; F1 says again where the user is, or asks for help where the dialog has
/// a Help button.
class GtkFileDialog : public FileDialog {
 public:
  /// `questions` asks before a file is replaced. Both must outlive the dialog.
  GtkFileDialog(WindowTable& windows, SpokenDialogs& questions, Speaker speak);
  ~GtkFileDialog() override;

  void Show(Kind kind, const OpenFileName& record, std::function<void(const DialogMessage&)> hook,
            std::function<void(const Result&)> done) override;
  WindowHandle Parent(WindowHandle window) const override;
  Rect WindowRect(WindowHandle window) const override;
  void MoveWindow(WindowHandle window, const Rect& place) override;
  void HideControl(WindowHandle dialog, int control) override;
  void SetControlText(WindowHandle dialog, int control, const std::string& text) override;
  void OpenHelp(const std::string& file, int command, const std::string& topic) override;

  /// The dialog while it is shown, else null.
  Gtk::FileChooserDialog* Chooser() { return dialog_.get(); }

 private:
  static constexpr int kHelpResponse = 1;

  void Make();
  void SetUp();
  void AddFilters();
  void Connect();
  void EnterInTable();
  void Present();
  void Response(int response);
  void TellHook(int message, int control = 0, int code = 0);
  void Accept();
  void AskToReplace(const std::string& path, const std::vector<std::string>& paths);
  void Finish(Result result);
  Gtk::Button* ButtonOf(int control) const;
  bool KeyDown(const GdkEventKey& event);
  void FocusMoved();
  void ListenToNewFolder();
  void SelectionChanged();
  void FolderChanged();
  std::string Where() const;
  std::string WordsOfFocus() const;
  std::string Selected() const;
  void Say(const std::string& text) const;

  WindowTable& windows_;
  SpokenDialogs& questions_;
  const Speaker speak_;
  Kind kind_ = Kind::Open;
  OpenFileName record_;
  std::function<void(const DialogMessage&)> hook_;
  std::function<void(const Result&)> done_;
  std::unique_ptr<Gtk::FileChooserDialog> dialog_;
  WindowHandle handle_ = 0;
  WindowHandle hook_window_ = 0;
  bool introduced_ = false;
  std::string folder_said_;
  std::string selection_said_;
  GtkLabel* problem_ = nullptr;  // of a new folder, once listened to
  int question_ = 0;             // being asked; 0: none
  Life life_;
};

}  // namespace corvane::desktop
