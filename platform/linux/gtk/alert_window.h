#pragma once

#include <gtkmm/messagedialog.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/gtk/window_table.h"
#include "platform/message_box.h"

namespace corvane::desktop {

/// A message with an OK button, shown as an accessible dialog that Enter, Escape
/// and a close request end. In the window table it is a top-level window whose
/// first child is the button, with the text "OK", and whose next is the message.
///
/// WindowActivated is raised before the dialog is on the screen: a listener that
/// then asks for it to be closed keeps it from ever being seen.
class AlertWindow {
 public:
  /// The caption of the messages that pages show.
  static constexpr const char* kPageCaption = "Microsoft Internet Explorer";

  /// `done` is called once, when the message is closed; the alert may be
  /// destroyed from inside it. Destroying it earlier calls nothing.
  AlertWindow(WindowTable& windows, const std::string& caption, const std::string& text,
              MessageBox::Icon icon, std::function<void()> done);
  ~AlertWindow();
  AlertWindow(const AlertWindow&) = delete;
  AlertWindow& operator=(const AlertWindow&) = delete;

  WindowHandle hwnd() const { return handle_; }
  /// Puts it on the screen, unless it is closed before that.
  void Show();
  void Close();
  bool OnScreen() const { return dialog_ != nullptr; }

 private:
  void Present();

  WindowTable& windows_;
  const std::string caption_;
  const std::string text_;
  const MessageBox::Icon icon_;
  std::function<void()> done_;
  WindowHandle handle_ = 0;
  WindowHandle button_ = 0;
  WindowHandle message_ = 0;
  std::unique_ptr<Gtk::MessageDialog> dialog_;
  std::shared_ptr<AlertWindow*> self_;
};

}  // namespace corvane::desktop
