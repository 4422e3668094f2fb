#include "platform/linux/store/ini_settings_store.h"

#include <fcntl.h>
#include <glib.h>
#include <glib/gstdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace corvane::desktop {
namespace {

constexpr int kFolderMode = 0700;
constexpr int kMostKept = 1000;  // broken files kept beside one settings file

// Tells one state of a file from the next; empty when there is no file.
std::string StampOf(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0) return {};
  return std::to_string(info.st_ino) + " " + std::to_string(info.st_size) + " " +
         std::to_string(info.st_mtim.tv_sec) + "." + std::to_string(info.st_mtim.tv_nsec);
}

// Keeps other processes from writing to the folder's settings meanwhile.
class FolderLock {
 public:
  explicit FolderLock(const std::string& folder)
      : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (descriptor_ >= 0) flock(descriptor_, LOCK_EX);
  }
  ~FolderLock() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

 private:
  int descriptor_;
};

std::vector<std::string> SystemFolders() {
  std::vector<std::string> folders;
  for (const char* const* folder = g_get_system_config_dirs(); *folder; ++folder) {
    folders.push_back(std::string(*folder) + "/corvane");
  }
  return folders;
}

}  // namespace

IniSettingsStore::IniSettingsStore()
    : IniSettingsStore(std::string(g_get_user_config_dir()) + "/corvane", SystemFolders()) {}

IniSettingsStore::IniSettingsStore(std::string user_folder, std::vector<std::string> defaults)
    : user_folder_(std::move(user_folder)), default_folders_(std::move(defaults)) {}

std::string IniSettingsStore::PathOf(const std::string& application) const {
  return user_folder_ + "/" + LastPartOf(application) + ".ini";
}

void IniSettingsStore::Tell(const std::string& what) const {
  if (told_.insert(what).second) Problem.Raise(what);
}

// True when the file is out of the way.
bool IniSettingsStore::KeepBroken(const std::string& path) const {
  for (int i = 0; i < kMostKept; ++i) {
    const std::string kept = path + ".broken" + (i == 0 ? "" : "." + std::to_string(i));
    if (!StampOf(kept).empty()) continue;
    if (g_rename(path.c_str(), kept.c_str()) != 0) break;
    Tell("The settings file " + path + " could not be read. It was kept as " + kept +
         ", and the default settings are used.");
    return true;
  }
  Tell("The settings file " + path +
       " could not be read. The default settings are used, and changes are lost at the end.");
  return false;
}

const IniValues& IniSettingsStore::UserValues(const std::string& application) const {
  const auto path = PathOf(application);
  auto& cached = read_[application];
  const auto stamp = StampOf(path);
  if (stamp.empty()) {
    cached = {};
    return cached.values;
  }
  if (cached.stamp == stamp) return cached.values;
  cached = {stamp, {}};
  const auto text = ReadWholeFile(path);
  auto values = text ? ParseIni(*text) : std::nullopt;
  if (values) {
    cached.values = std::move(*values);
  } else {
    KeepBroken(path);
  }
  return cached.values;
}

const IniValues& IniSettingsStore::DefaultsOf(const std::string& application) const {
  const auto known = defaults_.find(application);
  if (known != defaults_.end()) return known->second;
  IniValues values;
  for (const auto& folder : default_folders_) {
    const auto text = ReadWholeFile(folder + "/" + LastPartOf(application) + ".ini");
    auto found = text ? ParseIni(*text) : std::nullopt;
    if (found) values.merge(*found);  // what an earlier folder says stays
  }
  return defaults_[application] = std::move(values);
}

std::string IniSettingsStore::GetSetting(const std::string& application, const std::string& section,
                                         const std::string& key,
                                         const std::string& fallback) const {
  const IniKey wanted{section, key};
  const auto memory = unsaved_.find(application);
  if (memory != unsaved_.end()) {
    const auto found = memory->second.find(wanted);
    if (found != memory->second.end()) return found->second;
  }
  const auto& user = UserValues(application);
  if (const auto found = user.find(wanted); found != user.end()) return found->second;
  const auto& defaults = DefaultsOf(application);
  if (const auto found = defaults.find(wanted); found != defaults.end()) return found->second;
  return fallback;
}

void IniSettingsStore::SaveSetting(const std::string& application, const std::string& section,
                                   const std::string& key, const std::string& value) {
  auto& changes = unsaved_[application];
  changes[{section, key}] = value;
  if (Write(application, changes)) {
    unsaved_.erase(application);
    return;
  }
  Tell("The settings could not be saved in " + user_folder_ +
       ". They hold until the program ends.");
}

bool IniSettingsStore::Write(const std::string& application, const IniValues& changes) {
  const auto path = PathOf(application);
  if (g_mkdir_with_parents(user_folder_.c_str(), kFolderMode) != 0) return false;
  const FolderLock lock(user_folder_);
  auto values = UserValues(application);  // with what others have written meanwhile
  // A file that could neither be read nor be put aside must not be lost.
  const auto stamp = StampOf(path);
  if (!stamp.empty() && read_[application].stamp == stamp && values.empty()) {
    const auto text = ReadWholeFile(path);
    if (!text || !ParseIni(*text)) return false;
  }
  bool changed = stamp.empty();
  for (const auto& [key, value] : changes) {
    auto [entry, added] = values.try_emplace(key, value);
    if (added || entry->second != value) changed = true;
    entry->second = value;
  }
  if (!changed) return true;
  if (!ReplaceFile(path, FormatIni(values))) return false;
  read_[application] = {StampOf(path), std::move(values)};
  return true;
}

}  // namespace corvane::desktop
