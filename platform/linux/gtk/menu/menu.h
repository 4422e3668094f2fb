#pragma once

#include <gtkmm/menubar.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/menu.h"

namespace corvane::desktop {

class MenuEntry;

/// A Menu: plain data until a form asks for its bar, GTK menu items from then
/// on. An entry whose Checked was ever set shows a check mark's place; choosing
/// it never changes the mark by itself. A disabled entry can be reached and
/// read, looks and reports itself disabled, and does nothing.
class MenuRoot : public Menu {
 public:
  MenuRoot();
  ~MenuRoot() override;
  MenuRoot(const MenuRoot&) = delete;
  MenuRoot& operator=(const MenuRoot&) = delete;

  MenuItem& Add(const std::string& caption) override;
  const std::vector<std::unique_ptr<MenuEntry>>& Entries() const { return entries_; }

  /// The menu bar's widget; made when it is asked for first.
  Gtk::MenuBar& Bar();

 private:
  std::vector<std::unique_ptr<MenuEntry>> entries_;
  std::unique_ptr<Gtk::MenuBar> bar_;
};

}  // namespace corvane::desktop
