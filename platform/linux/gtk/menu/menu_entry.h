#pragma once

#include <gtkmm/menu.h>
#include <gtkmm/menuitem.h>
#include <gtkmm/menushell.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/menu.h"

namespace corvane::desktop {

/// One entry of a MenuRoot.
class MenuEntry : public MenuItem {
 public:
  explicit MenuEntry(std::string caption);
  ~MenuEntry() override;

  std::string Caption() const override { return caption_; }
  bool Checked() const override { return checked_; }
  void SetChecked(bool checked) override;
  bool Enabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override;
  MenuItem& Add(const std::string& caption) override;

  bool Separator() const { return caption_ == "-"; }
  const std::vector<std::unique_ptr<MenuEntry>>& Entries() const { return entries_; }

  /// Makes the entry's widget, with those of its submenu, at a place of a menu.
  void Show(Gtk::MenuShell& shell, int position);
  /// The widget; null while the menu is plain data.
  Gtk::MenuItem* Widget() { return item_.get(); }
  /// The entry that a widget belongs to; null for a widget of no entry.
  static MenuEntry* Of(GtkMenuItem* widget);

 private:
  void MakeItem();
  void MakeSubmenu();
  void ShowState();

  std::string caption_;
  bool checked_ = false;
  bool checkable_ = false;
  bool enabled_ = true;
  std::vector<std::unique_ptr<MenuEntry>> entries_;

  Gtk::MenuShell* shell_ = nullptr;
  std::unique_ptr<Gtk::MenuItem> item_;
  std::unique_ptr<Gtk::Menu> submenu_;
};

}  // namespace corvane::desktop
