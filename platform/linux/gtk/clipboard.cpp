#include "platform/linux/gtk/clipboard.h"

#include <gtkmm/clipboard.h>

#include "platform/linux/gtk/text.h"

namespace corvane::desktop {

struct SystemClipboard::State {
  std::string text;
  int changes = 0;  // tells a late answer from the one to the last question
};

SystemClipboard::SystemClipboard() : state_(std::make_shared<State>()) {
  const auto clipboard = Gtk::Clipboard::get();
  changed_ = clipboard->signal_owner_change().connect([this](GdkEventOwnerChange*) {
    // Our own changes are known already; controls of this window copy, too.
    Fetch();
  });
  Fetch();
}

SystemClipboard::~SystemClipboard() { changed_.disconnect(); }

void SystemClipboard::Fetch() {
  const int asked = ++state_->changes;
  Gtk::Clipboard::get()->request_text([state = state_, asked](const Glib::ustring& text) {
    if (asked == state->changes) state->text = text;
  });
}

void SystemClipboard::Clear() {
  ++state_->changes;
  state_->text.clear();
  Gtk::Clipboard::get()->set_text("");
}

void SystemClipboard::SetText(const std::string& text) {
  ++state_->changes;
  state_->text = Valid(text);
  const auto clipboard = Gtk::Clipboard::get();
  clipboard->set_text(state_->text);
  clipboard->set_can_store();
}

std::string SystemClipboard::GetText() const { return state_->text; }

}  // namespace corvane::desktop
