#include "web/library/HistoryFolder.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>
#include <utility>

#include "base/safe_name.h"
#include "web/library/LinkSearch.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

constexpr int kMostNamesakes = 100;

std::string ClockDay() {
  const std::time_t now = std::time(nullptr);
  std::array<char, 16> day{};
  const auto length = std::strftime(day.data(), day.size(), "%Y-%m-%d", std::localtime(&now));
  return {day.data(), length};
}

bool IsDay(const std::string& name) {
  if (name.size() != 10 || name[4] != '-' || name[7] != '-') return false;
  return std::all_of(name.begin(), name.end(),
                     [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
}

std::string AddressIn(const fs::path& path) { return ReadLinkAt(path.string()).address; }

bool IsShortcut(const fs::path& path) { return LinkKindOf(path.string()) == LinkKind::Shortcut; }

}  // namespace

HistoryFolder::HistoryFolder(std::string root, Write write, int days_kept,
                             std::function<std::string()> today)
    : root_(std::move(root)),
      write_(std::move(write)),
      days_kept_(static_cast<std::size_t>(std::max(days_kept, 1))),
      today_(today ? std::move(today) : &ClockDay) {}

std::vector<std::string> HistoryFolder::Days() const {
  std::vector<std::string> days;
  std::error_code error;
  for (fs::directory_iterator each(root_, error), end; !error && each != end;
       each.increment(error)) {
    const std::string name = each->path().filename().string();
    if (IsDay(name)) days.push_back(name);
  }
  std::sort(days.begin(), days.end());
  return days;
}

void HistoryFolder::RemoveOldDays() {
  const auto days = Days();
  if (days.size() <= days_kept_) return;
  std::error_code error;
  for (std::size_t i = 0; i < days.size() - days_kept_; ++i) {
    fs::remove_all(fs::path(root_) / days[i], error);
  }
}

void HistoryFolder::Add(const std::string& address, const std::string& title) {
  if (address.find_first_of("\r\n") != std::string::npos) return;
  known_.insert(address);
  const std::string day = today_();
  const fs::path folder = fs::path(root_) / day;
  const std::string name = SafeFileName(title);
  for (int i = 1; i <= kMostNamesakes; ++i) {
    const fs::path path = folder / (Numbered(name, i) + ".url");
    std::error_code error;
    if (fs::exists(path, error) && AddressIn(path) != address) continue;
    if (!write_(path.string(), ShortcutContent(address))) return;
    break;
  }
  if (std::exchange(last_day_, day) != day) RemoveOldDays();
}

void HistoryFolder::Clear() {
  known_.clear();
  std::error_code error;
  for (const auto& day : Days()) fs::remove_all(fs::path(root_) / day, error);
}

std::size_t HistoryFolder::Forget(const std::string& address) {
  known_.erase(address);
  std::size_t forgotten = 0;
  for (const auto& day : Days()) {
    const fs::path folder = fs::path(root_) / day;
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end;
         each.increment(error)) {
      const fs::path& path = each->path();
      if (IsShortcut(path) && AddressIn(path) == address) entries.push_back(path);
    }
    for (const auto& entry : entries) forgotten += fs::remove(entry, error) ? 1 : 0;
    fs::remove(folder, error);  // only an empty one goes
  }
  return forgotten;
}

}  // namespace corvane
