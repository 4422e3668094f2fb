#include "platform/linux/shell/file_folder.h"

#include <dirent.h>
#include <glib.h>
#include <sys/stat.h>

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "platform/linux/shell/folder_reader.h"

namespace corvane::desktop {
namespace {

constexpr const char* kDesktopName = "Desktop";
constexpr std::size_t kLongestAddress = 100'000;
constexpr gsize kLongestDesktopFile = 65'536;

bool EndsWith(const std::string& name, std::string_view extension) {
  return name.size() > extension.size() &&
         text::same_ignoring_case(std::string_view(name).substr(name.size() - extension.size()),
                                  extension);
}
bool IsShortcut(const std::string& name) { return EndsWith(name, ".url"); }
bool IsDesktopFile(const std::string& name) { return EndsWith(name, ".desktop"); }

std::string WithoutExtension(const std::string& name) { return name.substr(0, name.rfind('.')); }

bool IsOrdinaryFile(const std::string& path, goffset& size) {
  struct stat about {};
  if (stat(path.c_str(), &about) != 0 || !S_ISREG(about.st_mode)) return false;
  size = about.st_size;
  return true;
}

bool HoldsSomething(const std::string& folder) {
  DIR* open = opendir(folder.c_str());
  if (!open) return false;
  bool found = false;
  while (const dirent* entry = readdir(open)) {
    const std::string_view name = entry->d_name;
    found = name != "." && name != "..";
    if (found) break;
  }
  closedir(open);
  return found;
}

/// The name that a desktop file gives itself, in the user's language.
std::string NameInDesktopFile(const std::string& path) {
  GKeyFile* file = g_key_file_new();
  std::string name;
  if (g_key_file_load_from_file(file, path.c_str(), G_KEY_FILE_NONE, nullptr)) {
    if (char* value =
            g_key_file_get_locale_string(file, "Desktop Entry", "Name", nullptr, nullptr)) {
      name = value;
      g_free(value);
    }
  }
  g_key_file_free(file);
  return name;
}

}  // namespace

FileFolder::FileFolder(std::string path, bool is_history)
    : path_(std::move(path)), is_history_(is_history) {}

std::string FileFolder::Below(const std::string& name) const {
  return (path_ == "/" ? path_ : path_ + '/') + name;
}

std::unique_ptr<ShellEnumerator> FileFolder::EnumObjects(int contents) {
  return std::make_unique<FolderReader>(path_, contents);
}

std::optional<std::uint32_t> FileFolder::GetAttributesOf(const std::string& name,
                                                         std::uint32_t mask) {
  const std::string path = Below(name);
  struct stat itself {};
  struct stat target {};
  if (lstat(path.c_str(), &itself) != 0 || stat(path.c_str(), &target) != 0) return std::nullopt;
  std::uint32_t attributes = kAttributeFileSystem | kAttributeCanLink;
  const bool is_link_file = S_ISREG(target.st_mode) && (IsShortcut(name) || IsDesktopFile(name));
  if (S_ISLNK(itself.st_mode) || is_link_file) attributes |= kAttributeLink;
  if (S_ISDIR(target.st_mode)) {
    attributes |= kAttributeFolder;
    if ((mask & kAttributeHasSubFolder) != 0 && HoldsSomething(path)) {
      attributes |= kAttributeHasSubFolder;
    }
  }
  return attributes & mask;
}

std::string FileFolder::GetDisplayNameOf(const std::string& name) {
  if (name.empty()) return kDesktopName;
  std::string shown = name;
  goffset size = 0;
  const bool is_link_file = IsShortcut(name) || IsDesktopFile(name);
  if (is_link_file && IsOrdinaryFile(Below(name), size)) {
    shown.clear();
    if (IsDesktopFile(name) && static_cast<gsize>(size) <= kLongestDesktopFile) {
      shown = NameInDesktopFile(Below(name));
    }
    if (shown.empty()) shown = WithoutExtension(name);
  }
  return text::valid(shown);
}

std::string FileFolder::GetPathOf(const std::string& name) {
  const std::string path = Below(name);
  if (!is_history_) return path;
  goffset size = 0;
  if (!IsShortcut(name) || !IsOrdinaryFile(path, size)) return {};
  return files_.GetPrivateProfileString("InternetShortcut", "URL", kLongestAddress, path);
}

}  // namespace corvane::desktop
