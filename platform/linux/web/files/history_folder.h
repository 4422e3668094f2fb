#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace corvane::desktop {

/// The pages that were visited, as ordinary files: a folder a day, in it one
/// Internet shortcut (.url) a page, named by its title. The oldest days are
/// removed.
class HistoryFolder {
 public:
  /// `today` answers the present day as "2001-12-31"; by default the clock's.
  explicit HistoryFolder(std::string root, int days_kept = 30,
                         std::function<std::string()> today = {});

  /// Notes a visit. A second visit of a page on one day replaces the first. What
  /// cannot be written is left out: the history never stands in the way.
  void Add(const std::string& address, const std::string& title);
  /// Removes all days.
  void Clear();
  /// Forgets a page: removes its entries of all days, and days that are empty
  /// then. Returns how many there were.
  std::size_t Forget(const std::string& address);

 private:
  std::vector<std::string> Days() const;  // oldest first
  void RemoveOldDays();

  std::string root_;
  std::size_t days_kept_;
  std::function<std::string()> today_;
  std::string last_day_;
};

}  // namespace corvane::desktop
