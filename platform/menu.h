#pragma once

#include <string>

#include "base/event.h"

namespace corvane {

/// One entry of a menu; with entries of its own it opens a submenu. A disabled
/// entry can still be reached and read with the keyboard, but does nothing.
class MenuItem {
 public:
  MenuItem() = default;
  MenuItem(const MenuItem&) = delete;
  MenuItem& operator=(const MenuItem&) = delete;
  virtual ~MenuItem() = default;

  /// The caption with its access key marked by "&"; "-" is a separator.
  virtual std::string Caption() const = 0;
  virtual bool Checked() const = 0;
  virtual void SetChecked(bool checked) = 0;
  virtual bool Enabled() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  /// Appends an entry to this one's submenu; it lives as long as this entry.
  virtual MenuItem& Add(const std::string& caption) = 0;

  /// The number by which a MessageHook names the entry; 0 until it is set.
  int Id() const { return id_; }
  void SetId(int id) { id_ = id; }

  Event<> Click;

 private:
  int id_ = 0;
};

/// A menu bar or a pop-up menu: the root of a tree of entries.
class Menu {
 public:
  virtual ~Menu() = default;
  /// Appends a top-level entry; it lives as long as the menu.
  virtual MenuItem& Add(const std::string& caption) = 0;
};

}  // namespace corvane
