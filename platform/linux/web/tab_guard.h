#pragma once

#include <gtkmm/widget.h>
#include <sigc++/connection.h>

#include <cstdint>

namespace corvane::desktop {

/// Keeps one press of Tab from moving the focus twice. The engine takes every key
/// first. When Tab leaves the page's last element the engine moves the focus out
/// of the page and afterwards hands the very same key back, as one it had no use
/// for, to whatever has the focus by then.
class TabGuard {
 public:
  /// `view` must outlive the guard.
  explicit TabGuard(Gtk::Widget& view);
  ~TabGuard();
  TabGuard(const TabGuard&) = delete;
  TabGuard& operator=(const TabGuard&) = delete;

 private:
  void WatchWindow();

  Gtk::Widget& view_;
  std::uint32_t given_to_page_ = 0;  // time stamp of the Tab that the page got
  sigc::connection key_;
  sigc::connection hierarchy_;
  sigc::connection window_;
};

}  // namespace corvane::desktop
