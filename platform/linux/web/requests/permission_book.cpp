#include "platform/linux/web/requests/permission_book.h"

#include <glib.h>

#include <filesystem>
#include <memory>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

struct KeyFileFree {
  void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, KeyFileFree>;

struct ListFree {
  void operator()(char** list) const { g_strfreev(list); }
};
using TextList = std::unique_ptr<char*, ListFree>;

}  // namespace

PermissionBook::PermissionBook(std::string path) : path_(std::move(path)) {
  const KeyFile file(g_key_file_new());
  if (path_.empty() ||
      !g_key_file_load_from_file(file.get(), path_.c_str(), G_KEY_FILE_NONE, nullptr)) {
    return;
  }
  const TextList sites(g_key_file_get_groups(file.get(), nullptr));
  for (char** site = sites.get(); *site != nullptr; ++site) {
    const TextList kinds(g_key_file_get_keys(file.get(), *site, nullptr, nullptr));
    for (char** kind = kinds.get(); kind != nullptr && *kind != nullptr; ++kind) {
      const GText value(g_key_file_get_value(file.get(), *site, *kind, nullptr));
      // Anything but a clear yes is a no.
      decisions_[{*site, *kind}] = Text(value.get()) == "allowed";
    }
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
  const KeyFile file(g_key_file_new());
  for (const auto& [key, allowed] : decisions_) {
    g_key_file_set_value(file.get(), key.first.c_str(), key.second.c_str(),
                         allowed ? "allowed" : "refused");
  }
  std::error_code error;
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path(), error);
  GError* raw = nullptr;
  if (g_key_file_save_to_file(file.get(), path_.c_str(), &raw)) return true;
  const ErrorPtr problem(raw);
  g_message("Permissions are not stored: %s", problem->message);
  return false;
}

}  // namespace corvane::desktop
