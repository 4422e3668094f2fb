#include "platform/linux/shell/file_folder.h"

#include <dirent.h>
#include <glib.h>
#include <sys/stat.h>

#include <string_view>
#include <utility>

#include "base/safe_name.h"
#include "platform/linux/shell/folder_reader.h"

namespace corvane::desktop {
namespace {

constexpr const char* kDesktopName = "Desktop";
bool IsLink(const std::string& name) {
  const LinkKind kind = LinkKindOf(name);
  return kind == LinkKind::Shortcut || kind == LinkKind::DesktopLink;
}

bool IsOrdinaryFile(const std::string& path) {
  struct stat about {};
  return stat(path.c_str(), &about) == 0 && S_ISREG(about.st_mode);
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

std::vector<std::string> Languages() {
  std::vector<std::string> languages;
  for (const char* const* each = g_get_language_names(); *each != nullptr; ++each) {
    languages.emplace_back(*each);
  }
  return languages;
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
  const bool is_link_file = S_ISREG(target.st_mode) && IsLink(name);
  if (S_ISLNK(itself.st_mode) || is_link_file) attributes |= kAttributeLink;
  if (S_ISDIR(target.st_mode)) {
    attributes |= kAttributeFolder;
    if ((mask & kAttributeHasSubFolder) != 0 && HoldsSomething(path)) {
      attributes |= kAttributeHasSubFolder;
    }
  }
  return attributes & mask;
}

LinkFile FileFolder::Read(const std::string& name) const {
  const std::string path = Below(name);
  return ReadLinkFile(path, files_.ReadText(path, kMostOfLinkFile), Languages());
}

// A saved page goes by its file's name, which is the user's own: F2 changes it. What
// the page calls itself is in the page.
std::string FileFolder::GetDisplayNameOf(const std::string& name) {
  if (name.empty()) return kDesktopName;
  if (!IsOrdinaryFile(Below(name))) return PlainName(name);
  const bool names_itself = LinkKindOf(name) == LinkKind::DesktopLink;
  const std::string own = names_itself ? Read(name).name : std::string();
  return own.empty() ? ShownFileName(name) : own;
}

std::string FileFolder::GetPathOf(const std::string& name) {
  std::string path = Below(name);
  if (!is_history_) return path;
  return IsLink(name) && IsOrdinaryFile(path) ? Read(name).address : std::string();
}

}  // namespace corvane::desktop
