#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/life.h"
#include "platform/linux/gtk/dialogs/alert_window.h"
#include "platform/message_box.h"

namespace corvane::desktop {

/// A MessageBox that returns at once: boxes are shown one after the other.
/// `speak` gets each box's text and button as it is shown.
class MessageBoxQueue : public MessageBox {
 public:
  MessageBoxQueue(WindowTable& windows, std::string title, Speaker speak);
  ~MessageBoxQueue() override;

  /// `title` empty: the program's own.
  void Show(const std::string& text, Icon icon, const std::string& title = "",
            std::function<void()> closed = nullptr) override;

  /// Whether a box is on the screen or waits to be: the program must not end.
  bool AnyOpen() const { return open_ != nullptr || !waiting_.empty(); }
  /// The last box has been closed.
  Event<> LastClosed;

 private:
  struct Message {
    std::string text;
    Icon icon;
    std::string title;
    std::function<void()> closed;
  };
  void Next();
  void AwaitReturn();
  void TellClosed();

  WindowTable& windows_;
  const std::string title_;
  const Speaker speak_;
  std::deque<Message> waiting_;
  std::unique_ptr<AlertWindow> open_;
  std::vector<std::function<void()>> closed_;  // to be told when the user is back
  Connection back_;
  Life life_;
};

}  // namespace corvane::desktop
