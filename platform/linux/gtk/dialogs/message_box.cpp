#include "platform/linux/gtk/dialogs/message_box.h"

#include <utility>

#include "platform/linux/gtk/post.h"

namespace corvane::desktop {

MessageBoxQueue::MessageBoxQueue(WindowTable& windows, std::string title, Speaker speak)
    : windows_(windows),
      title_(std::move(title)),
      speak_(std::move(speak)),
      self_(std::make_shared<MessageBoxQueue*>(this)) {}

MessageBoxQueue::~MessageBoxQueue() { *self_ = nullptr; }

void MessageBoxQueue::Show(const std::string& text, Icon icon, const std::string& title) {
  waiting_.push_back({text, icon, title.empty() ? title_ : title});
  if (!open_) Next();
}

void MessageBoxQueue::Next() {
  if (waiting_.empty()) {
    LastClosed.Raise();
    return;
  }
  const auto message = std::move(waiting_.front());
  waiting_.pop_front();
  open_ = std::make_unique<AlertWindow>(windows_, message.title, message.text, message.icon, speak_,
                                        [this] {
                                          // The alert is still at work: let it finish before it
                                          // goes.
                                          PostToLoop([self = self_] {
                                            if (!*self) return;
                                            (*self)->open_.reset();
                                            (*self)->Next();
                                          });
                                        });
  open_->Show();
}

}  // namespace corvane::desktop
