#include "platform/linux/web/files/history_folder.h"

#include <gio/gio.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

#include "platform/linux/web/files/save_page.h"
#include "platform/linux/web/gobject.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

constexpr int kPrivateFolder = 0700;
constexpr int kPrivateFile = 0600;
constexpr int kMostNamesakes = 100;
constexpr std::size_t kMostFiles = 2000;
constexpr std::size_t kMostMatches = 50;
constexpr const char* kUrlKey = "URL=";

std::string ClockDay() {
  GDateTime* now = g_date_time_new_now_local();
  const GText day(g_date_time_format(now, "%Y-%m-%d"));
  g_date_time_unref(now);
  return Text(day.get());
}

bool IsDay(const std::string& name) {
  if (name.size() != 10 || name[4] != '-' || name[7] != '-') return false;
  return std::all_of(name.begin(), name.end(),
                     [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
}

/// The address in an Internet shortcut; empty where there is none.
std::string ShortcutAddress(const fs::path& path) {
  std::ifstream file(path);
  std::string line;
  while (std::getline(file, line)) {
    if (!line.starts_with(kUrlKey)) continue;
    line.erase(0, std::string(kUrlKey).size());
    if (line.ends_with('\r')) line.pop_back();
    return line;
  }
  return {};
}

std::string Folded(const std::string& text) {
  const GText valid(g_utf8_make_valid(text.c_str(), static_cast<gssize>(text.size())));
  const GText folded(g_utf8_casefold(valid.get(), -1));
  return Text(folded.get());
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream stream(Folded(text));
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::vector<fs::path> ShortcutsBelow(const std::string& folder) {
  std::vector<fs::path> found;
  std::error_code error;
  fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied,
                                        error);
  while (!error && each != fs::recursive_directory_iterator() && found.size() < kMostFiles) {
    if (each->path().extension() == ".url") found.push_back(each->path());
    each.increment(error);
  }
  std::sort(found.rbegin(), found.rend());  // days are named so that the newest comes first
  return found;
}

}  // namespace

HistoryFolder::HistoryFolder(std::string root, int days_kept, std::function<std::string()> today)
    : root_(std::move(root)),
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
  const std::string day = today_();
  const fs::path folder = fs::path(root_) / day;
  if (g_mkdir_with_parents(folder.c_str(), kPrivateFolder) != 0) return;
  if (std::exchange(last_day_, day) != day) RemoveOldDays();

  const std::string name = FileNameOf(title);
  for (int i = 1; i <= kMostNamesakes; ++i) {
    const fs::path path = folder / (name + (i == 1 ? "" : " " + std::to_string(i)) + ".url");
    std::error_code error;
    if (fs::exists(path, error) && ShortcutAddress(path) != address) continue;
    const std::string content = "[InternetShortcut]\r\nURL=" + address + "\r\n";
    g_file_set_contents_full(path.c_str(), content.c_str(), static_cast<gssize>(content.size()),
                             G_FILE_SET_CONTENTS_CONSISTENT, kPrivateFile, nullptr);
    return;
  }
}

void HistoryFolder::Clear() {
  std::error_code error;
  for (const auto& day : Days()) fs::remove_all(fs::path(root_) / day, error);
}

std::size_t HistoryFolder::Forget(const std::string& address) {
  std::size_t forgotten = 0;
  for (const auto& day : Days()) {
    const fs::path folder = fs::path(root_) / day;
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end;
         each.increment(error)) {
      const fs::path& path = each->path();
      if (path.extension() == ".url" && ShortcutAddress(path) == address) entries.push_back(path);
    }
    for (const auto& entry : entries) forgotten += fs::remove(entry, error) ? 1 : 0;
    fs::remove(folder, error);  // only an empty one goes
  }
  return forgotten;
}

std::vector<SearchMatch> FindShortcuts(const std::vector<std::string>& folders,
                                       const std::string& words) {
  std::vector<SearchMatch> matches;
  const auto wanted = WordsOf(words);
  if (wanted.empty()) return matches;
  for (const auto& folder : folders) {
    for (const auto& path : ShortcutsBelow(folder)) {
      const SearchMatch match{path.stem().string(), ShortcutAddress(path)};
      const std::string text = Folded(match.title + " " + match.address);
      const bool fits = std::all_of(wanted.begin(), wanted.end(), [&](const auto& word) {
        return text.find(word) != std::string::npos;
      });
      const bool known = std::any_of(matches.begin(), matches.end(), [&](const auto& other) {
        return other.address == match.address;
      });
      if (match.address.empty() || !fits || known) continue;
      matches.push_back(match);
      if (matches.size() == kMostMatches) return matches;
    }
  }
  return matches;
}

}  // namespace corvane::desktop
