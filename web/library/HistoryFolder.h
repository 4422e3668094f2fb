#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

namespace corvane {

/// The pages that were visited, as ordinary files: a folder a day, in it one
/// Internet shortcut (.url) a page, named by its title. The oldest days are
/// removed.
class HistoryFolder {
 public:
  /// Replaces a file whole, and makes its folder, both for their owner only; false when
  /// that is not possible.
  using Write = std::function<bool(const std::string& path, const std::string& content)>;

  /// `today` answers the present day as "2001-12-31"; by default the clock's.
  HistoryFolder(std::string root, Write write, int days_kept = 30,
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
  Write write_;
  std::size_t days_kept_;
  std::function<std::string()> today_;
  std::string last_day_;
  std::unordered_set<std::string> known_;
};

}  // namespace corvane
