#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_set>
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
  /// Whether the page has been added since the program was started, and not removed
  /// through this object. What stands in the folder from earlier is not looked through.
  bool Knows(const std::string& address) const { return known_.contains(address); }
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
  std::unordered_set<std::string> known_;
};

}  // namespace corvane::desktop
