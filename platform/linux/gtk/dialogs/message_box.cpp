#include "platform/linux/gtk/dialogs/message_box.h"

#include <glibmm/main.h>

#include <utility>

#include "platform/linux/glib/later.h"

namespace corvane::desktop {
namespace {

/// How long the window under a box is waited for: its user may have gone to another
/// program.
constexpr unsigned kReturnLimit = 1000;  // milliseconds

}  // namespace

MessageBoxQueue::MessageBoxQueue(WindowTable& windows, std::string title, Speaker speak)
    : windows_(windows), title_(std::move(title)), speak_(std::move(speak)) {}

MessageBoxQueue::~MessageBoxQueue() { life_.End(); }

void MessageBoxQueue::Show(const std::string& text, Icon icon, const std::string& title,
                           std::function<void()> closed) {
  waiting_.push_back({text, icon, title.empty() ? title_ : title, std::move(closed)});
  if (!open_) Next();
}

void MessageBoxQueue::Next() {
  if (waiting_.empty()) {
    AwaitReturn();
    LastClosed.Raise();
    return;
  }
  const auto message = std::move(waiting_.front());
  waiting_.pop_front();
  open_ = std::make_unique<AlertWindow>(windows_, message.title, message.text, message.icon, speak_,
                                        [this, closed = message.closed] {
                                          if (closed) closed_.push_back(closed);
                                          // The alert is still at work: let it finish before it
                                          // goes.
                                          PostToLoop([this, here = life_.Look()] {
                                            if (!here) return;
                                            open_.reset();
                                            Next();
                                          });
                                        });
  open_->Show();
}

// The window under the last box gets the keyboard back a moment later, and then says
// where its user is: whoever waits for the box speaks behind that.
void MessageBoxQueue::AwaitReturn() {
  if (closed_.empty()) return;
  const auto tell = [this, here = life_.Look()] {
    if (here) TellClosed();
  };
  if (ActiveWindow()) return PostToLoop(tell);
  back_ = windows_.WindowActivated.Connect([tell](WindowHandle) { PostToLoop(tell); });
  Glib::signal_timeout().connect_once(tell, kReturnLimit);
}

void MessageBoxQueue::TellClosed() {
  if (open_) return;  // told when that one is closed, too
  back_.Disconnect();
  for (const auto& closed : std::exchange(closed_, {})) closed();
}

}  // namespace corvane::desktop
