#pragma once

#include <functional>
#include <string>

#include "platform/linux/gtk/dialogs/spoken_dialog.h"
#include "platform/message_box.h"

namespace corvane::desktop {

/// A message with an OK button, shown as an accessible dialog that Enter, Escape
/// and a close request end. In the window table it is a top-level window whose first child is the
/// button, with the text "OK", and whose next is the message.
///
/// WindowActivated is raised before the dialog is on the screen: a listener that
/// then asks for it to be closed keeps it from ever being seen.
class AlertWindow {
 public:
  /// The caption of the messages that pages show.
  static constexpr const char* kPageCaption = "Microsoft Internet Explorer";

  /// `speak` may be empty. `done` is called once, when the message is closed; the alert may be
  /// destroyed from inside it. Destroying it earlier calls nothing.
  AlertWindow(WindowTable& windows, const std::string& caption, const std::string& text,
              MessageBox::Icon icon, Speaker speak, std::function<void()> done);

  WindowHandle hwnd() const { return dialog_.hwnd(); }
  /// Puts it on the screen, unless it is closed before that; `owner` as for
  /// SpokenDialog.
  void Show(Gtk::Window* owner = nullptr) { dialog_.Show(owner); }
  void Close() { dialog_.Close(); }
  bool OnScreen() const { return dialog_.OnScreen(); }

 private:
  SpokenDialog dialog_;
};

}  // namespace corvane::desktop
