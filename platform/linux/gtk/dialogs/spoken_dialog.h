#pragma once

#include <gtkmm/button.h>
#include <gtkmm/messagedialog.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/life.h"
#include "platform/linux/gtk/dialogs/dialog_field.h"
#include "platform/linux/gtk/dialogs/speaker.h"
#include "platform/linux/gtk/way_back.h"
#include "platform/linux/gtk/window_table.h"
#include "platform/questions.h"

namespace corvane::desktop {

/// A question on the screen, for the keyboard and the ear: it speaks its title,
/// its text and the control that has the focus when it appears, each control's
/// label, kind and value when the focus comes to it, and every change of a value.
/// Tab and the arrow keys go round, Enter presses the default button, Escape the
/// one that cancels, F1 speaks everything again.
///
/// In the window table it is a top-level window whose first children are its
/// buttons and whose last is the text. WindowActivated is raised before it is on
/// the screen: a listener that then asks for it to be closed keeps it from being
/// seen.
class SpokenDialog {
 public:
  /// `speak` may be empty. `done` is called once, with the answer; the dialog may
  /// be destroyed from inside it. Destroying the dialog earlier calls nothing.
  SpokenDialog(WindowTable& windows, Speaker speak, DialogQuestion question,
               std::function<void(const DialogAnswer&)> done);
  ~SpokenDialog();
  SpokenDialog(const SpokenDialog&) = delete;
  SpokenDialog& operator=(const SpokenDialog&) = delete;

  WindowHandle hwnd() const { return handle_; }
  /// Puts it in front of `owner` (null: of the window that the user is in), unless
  /// it is closed before that. Returns at once. Who was in another window comes back
  /// there afterwards.
  void Show(Gtk::Window* owner = nullptr);
  /// Presses the button that cancels.
  void Close() { Press(CancelButton()); }
  bool OnScreen() const { return dialog_ != nullptr; }

 private:
  void EnterInTable();
  void Present(Gtk::Window* owner);
  void AddFields();
  void AddButtons();
  void Connect();
  int CancelButton() const;
  void Press(int button);
  void FieldChanged(std::size_t field, const std::string& text);
  DialogAnswer Answer(int button) const;
  bool KeyDown(const GdkEventKey& event);
  void FocusMoved(Gtk::Widget* focus);
  void ActiveChanged();
  std::string SpokenTitle() const;
  std::string WordsFor(Gtk::Widget* focus) const;
  void Say(const std::string& text) const;
  void SayAll() const;

  WindowTable& windows_;
  const Speaker speak_;
  const DialogQuestion question_;
  std::function<void(const DialogAnswer&)> done_;
  WindowHandle handle_ = 0;
  std::vector<WindowHandle> children_;
  std::unique_ptr<Gtk::MessageDialog> dialog_;
  std::vector<std::unique_ptr<DialogFieldWidget>> fields_;
  std::vector<Gtk::Button*> buttons_;
  Gtk::Window* owner_ = nullptr;  // may be gone
  WayBack way_back_;
  bool introduced_ = false;       // title and text have been spoken
  bool awaits_keyboard_ = false;  // spoken already when the keyboard comes to it
  Life life_;
};

}  // namespace corvane::desktop
