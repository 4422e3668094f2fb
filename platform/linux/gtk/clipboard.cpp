#include "platform/linux/gtk/clipboard.h"

#include <gtkmm/clipboard.h>

#include "platform/linux/gtk/text.h"

namespace corvane::desktop {

void SystemClipboard::Clear() { Gtk::Clipboard::get()->clear(); }

void SystemClipboard::SetText(const std::string& text) {
  const auto clipboard = Gtk::Clipboard::get();
  clipboard->set_text(Valid(text));
  clipboard->set_can_store();
}

std::string SystemClipboard::GetText() const { return Gtk::Clipboard::get()->wait_for_text(); }

}  // namespace corvane::desktop
