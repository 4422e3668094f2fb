#include "platform/linux/gtk/alert_window.h"

#include <atkmm/object.h>

#include <utility>

#include "platform/linux/gtk/post.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

Gtk::MessageType TypeOf(MessageBox::Icon icon) {
  switch (icon) {
    case MessageBox::Icon::Critical:
      return Gtk::MESSAGE_ERROR;
    case MessageBox::Icon::Exclamation:
      return Gtk::MESSAGE_WARNING;
    case MessageBox::Icon::Information:
      break;
  }
  return Gtk::MESSAGE_INFO;
}

// The window that the user is in, to put the message in front of it.
Gtk::Window* ActiveWindow() {
  for (auto* window : Gtk::Window::list_toplevels()) {
    if (window->property_is_active() && window->get_visible()) return window;
  }
  return nullptr;
}

}  // namespace

AlertWindow::AlertWindow(WindowTable& windows, const std::string& caption, const std::string& text,
                         MessageBox::Icon icon, std::function<void()> done)
    : windows_(windows),
      caption_(caption),
      text_(text),
      icon_(icon),
      done_(std::move(done)),
      self_(std::make_shared<AlertWindow*>(this)) {
  WindowTable::Entry entry;
  entry.class_name = "Alert";
  entry.text = [this] { return caption_; };
  entry.close = [this] { Close(); };
  handle_ = windows_.Add(std::move(entry));
  const auto add_child = [&](const char* class_name, const std::string& child_text) {
    WindowTable::Entry child;
    child.class_name = class_name;
    child.parent = handle_;
    child.child = true;
    child.text = [child_text] { return child_text; };
    return windows_.Add(std::move(child));
  };
  button_ = add_child("Button", "OK");
  message_ = add_child("Static", text_);
}

AlertWindow::~AlertWindow() {
  *self_ = nullptr;
  for (const auto window : {message_, button_, handle_}) windows_.Remove(window);
}

void AlertWindow::Show() {
  const auto self = self_;
  windows_.WindowActivated.Raise(handle_);
  // A close request that a listener has posted comes first.
  PostToLoop([self] {
    if (*self && (*self)->done_) (*self)->Present();
  });
}

void AlertWindow::Present() {
  if (dialog_) return;
  dialog_ = std::make_unique<Gtk::MessageDialog>(Valid(text_), false, TypeOf(icon_),
                                                 Gtk::BUTTONS_NONE, true);
  auto* button = dialog_->add_button("_OK", Gtk::RESPONSE_OK);
  dialog_->set_default_response(Gtk::RESPONSE_OK);
  dialog_->set_title(Valid(caption_));
  dialog_->get_accessible()->set_name(Valid(caption_));
  dialog_->get_accessible()->set_description(Valid(text_));
  if (auto* owner = ActiveWindow()) dialog_->set_transient_for(*owner);
  dialog_->set_position(Gtk::WIN_POS_CENTER_ON_PARENT);
  // The dialog may outlive its answer, and even this object, by an event.
  dialog_->signal_response().connect([self = self_](int) {
    if (*self) (*self)->Close();
  });
  dialog_->property_is_active().signal_changed().connect([self = self_] {
    if (!*self || !(*self)->dialog_ || !(*self)->dialog_->property_is_active()) return;
    (*self)->windows_.WindowActivated.Raise((*self)->handle_);
  });
  button->grab_focus();
  dialog_->present();
}

void AlertWindow::Close() {
  const auto done = std::exchange(done_, nullptr);
  if (!done) return;
  if (dialog_) {
    dialog_->hide();
    // It may be in the middle of telling that it was answered.
    PostToLoop([dialog = std::shared_ptr<Gtk::MessageDialog>(std::move(dialog_))] {});
  }
  done();
}

}  // namespace corvane::desktop
