#include "platform/linux/gtk/menu/menu_entry.h"

#include <gtkmm/separatormenuitem.h>

#include <utility>

#include "platform/linux/glib/later.h"
#include "platform/linux/gtk/menu/menu_item_widgets.h"
#include "platform/linux/gtk/menu/title_letters.h"
#include "platform/linux/gtk/text.h"

namespace corvane::desktop {
namespace {

constexpr const char* kEntryKey = "corvane-entry";

}  // namespace

MenuEntry* MenuEntry::Of(GtkMenuItem* widget) {
  return static_cast<MenuEntry*>(g_object_get_data(G_OBJECT(widget), kEntryKey));
}

MenuEntry::MenuEntry(std::string caption) : caption_(std::move(caption)) {}

// The submenu goes before the item that it hangs on, and its entries before it.
MenuEntry::~MenuEntry() {
  entries_.clear();
  if (item_ && submenu_) item_->unset_submenu();
}

MenuItem& MenuEntry::Add(const std::string& caption) {
  entries_.push_back(std::make_unique<MenuEntry>(caption));
  if (item_) {
    if (!submenu_) MakeSubmenu();
    entries_.back()->Show(*submenu_, static_cast<int>(entries_.size()) - 1);
  }
  return *entries_.back();
}

void MenuEntry::Show(Gtk::MenuShell& shell, int position) {
  shell_ = &shell;
  MakeItem();
  shell.insert(*item_, position);
  if (entries_.empty()) return;
  MakeSubmenu();
  int index = 0;
  for (const auto& entry : entries_) entry->Show(*submenu_, index++);
}

void MenuEntry::MakeSubmenu() {
  submenu_ = std::make_unique<Gtk::Menu>();
  AnswerLetters(submenu_->gobj());
  item_->set_submenu(*submenu_);
}

void MenuEntry::MakeItem() {
  if (Separator()) {
    item_ = std::make_unique<Gtk::SeparatorMenuItem>();
    item_->show();
    return;
  }
  if (checkable_) {
    item_ = std::make_unique<MarkedMenuItem>(WithMnemonic(caption_));
  } else {
    item_ = std::make_unique<PlainMenuItem>(WithMnemonic(caption_));
  }
  g_object_set_data(G_OBJECT(item_->gobj()), kEntryKey, this);
  AnswerLetters(item_->gobj());
  item_->signal_activate().connect([this] {
    auto* marked = dynamic_cast<MarkedMenuItem*>(item_.get());
    if (marked && marked->Setting()) return;
    if (enabled_ && !submenu_) Click.Raise();
  });
  item_->show();
  ShowState();
}

void MenuEntry::ShowState() {
  if (auto* marked = dynamic_cast<MarkedMenuItem*>(item_.get())) marked->SetMark(checked_);
  ShowEnabled(*item_, enabled_);
}

void MenuEntry::SetChecked(bool checked) {
  checked_ = checked;
  if (Separator()) return;
  const bool known = std::exchange(checkable_, true);
  if (!item_) return;
  if (!known) {
    // From now on the entry shows a mark: its widget is made anew at its place.
    int position = 0;
    for (auto* child : shell_->get_children()) {
      if (child == item_.get()) break;
      ++position;
    }
    if (submenu_) item_->unset_submenu();
    shell_->remove(*item_);
    // The old one may be in the middle of being chosen.
    PostToLoop([old = std::shared_ptr<Gtk::MenuItem>(std::move(item_))] {});
    MakeItem();
    shell_->insert(*item_, position);
    if (submenu_) item_->set_submenu(*submenu_);
    return;
  }
  ShowState();
}

void MenuEntry::SetEnabled(bool enabled) {
  enabled_ = enabled;
  if (item_ && !Separator()) ShowEnabled(*item_, enabled);
}

}  // namespace corvane::desktop
