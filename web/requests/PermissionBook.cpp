#include "web/requests/PermissionBook.h"

#include <utility>

#include "base/profile_text.h"
#include "base/read_file.h"

namespace corvane {

PermissionBook::PermissionBook(std::string path, Write write)
    : path_(std::move(path)), write_(std::move(write)) {
  if (path_.empty()) return;
  constexpr std::size_t kMostBytes = 1'000'000;
  const std::string content = ReadFile(path_, kMostBytes).value_or("");
  for (profile::Reader line(content); line.Next();) {
    if (line.opens_section || line.section.empty()) continue;
    // Anything but a clear yes is a no.
    decisions_[{std::string(line.section), std::string(line.key)}] = line.value == "allowed";
  }
}

std::optional<bool> PermissionBook::Find(const std::string& site, const std::string& kind) const {
  const auto found = decisions_.find({site, kind});
  if (found == decisions_.end()) return std::nullopt;
  return found->second;
}

bool PermissionBook::Decide(const std::string& site, const std::string& kind, bool allowed) {
  // A section's name is not quoted in the file.
  if (site.empty() || site.find_first_of("[]\n\r") != std::string::npos) return false;
  decisions_[{site, kind}] = allowed;
  return Save();
}

std::vector<PermissionBook::Decision> PermissionBook::List() const {
  std::vector<Decision> all;
  for (const auto& [key, allowed] : decisions_) all.push_back({key.first, key.second, allowed});
  return all;
}

bool PermissionBook::Forget(const std::string& site, const std::string& kind) {
  decisions_.erase({site, kind});
  return Save();
}

bool PermissionBook::Save() const {
  if (path_.empty()) return true;
  std::string content;
  std::string section;
  for (const auto& [key, allowed] : decisions_) {
    if (key.first != section) content += (content.empty() ? "[" : "\n[") + key.first + "]\n";
    section = key.first;
    content += key.second + (allowed ? "=allowed\n" : "=refused\n");
  }
  return write_(path_, content);
}

}  // namespace corvane
