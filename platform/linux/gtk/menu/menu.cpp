#include "platform/linux/gtk/menu/menu.h"

#include "platform/linux/gtk/menu/menu_entry.h"

namespace corvane::desktop {

MenuRoot::MenuRoot() = default;
MenuRoot::~MenuRoot() = default;

MenuItem& MenuRoot::Add(const std::string& caption) {
  entries_.push_back(std::make_unique<MenuEntry>(caption));
  auto& entry = *entries_.back();
  if (bar_) entry.Show(*bar_, static_cast<int>(entries_.size()) - 1);
  return entry;
}

Gtk::MenuBar& MenuRoot::Bar() {
  if (!bar_) {
    bar_ = std::make_unique<Gtk::MenuBar>();
    int position = 0;
    for (const auto& entry : entries_) entry->Show(*bar_, position++);
    bar_->show();
  }
  return *bar_;
}

}  // namespace corvane::desktop
