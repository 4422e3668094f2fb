#include "platform/linux/shell/file_shell.h"

#include <fcntl.h>
#include <giomm/contenttype.h>
#include <gtkmm/icontheme.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <utility>

#include "base/error.h"
#include "platform/linux/gtk/controls/image_list.h"
#include "platform/linux/shell/file_folder.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

constexpr int kPrivateFolder = 0700;
constexpr int kLargePixels = 24;
constexpr int kSmallPixels = 16;
constexpr const char* kFavorites = "/Favorites";
constexpr const char* kHistory = "/History";

/// The kind of a file, told by its name alone; empty when nothing is there.
std::string ContentTypeOf(const std::string& path) {
  struct stat about {};
  if (stat(path.c_str(), &about) != 0) return {};
  if (S_ISDIR(about.st_mode)) return "inode/directory";
  bool uncertain = false;
  return Gio::content_type_guess(fs::path(path).filename().string(), nullptr, 0, uncertain);
}

[[noreturn]] void Fail(int error) {
  const bool denied = error == EACCES || error == EPERM || error == EROFS;
  throw RunTimeError(denied ? kErrPermissionDenied : kErrDeviceIo, "Shell", std::strerror(error));
}

}  // namespace

FileShell::FileShell(std::string data) : data_(std::move(data)) {}

std::optional<ItemIdList> FileShell::SpecialFolderLocation(int number) {
  if (number == kFolderDesktop) return ItemIdList();
  if (number != kFolderFavorites && number != kFolderHistory) return std::nullopt;
  const std::string path = data_ + (number == kFolderFavorites ? kFavorites : kHistory);
  g_mkdir_with_parents(path.c_str(), kPrivateFolder);
  return ParseDisplayName(path);
}

std::optional<ItemIdList> FileShell::ParseDisplayName(const std::string& path) {
  std::error_code error;
  if (!path.starts_with('/') || !fs::exists(fs::symlink_status(path, error))) return std::nullopt;
  ItemIdList place;
  for (const auto& part : fs::path(path).lexically_normal().relative_path()) {
    if (!part.empty()) place.push_back(part.string());
  }
  return place;
}

std::string FileShell::GetPathFromIdList(const ItemIdList& place) {
  std::string path;
  for (const auto& part : place) path += '/' + part;
  return path.empty() ? "/" : path;
}

std::shared_ptr<ShellFolder> FileShell::BindToFolder(const ItemIdList& place) {
  const std::string path = GetPathFromIdList(place);
  const std::string history = data_ + kHistory;
  const bool is_history = path == history || path.starts_with(history + '/');
  return std::make_shared<FileFolder>(path, is_history);
}

int FileShell::SystemImageIndex(const ItemIdList& place) {
  const std::string type = ContentTypeOf(GetPathFromIdList(place));
  if (type.empty()) return 0;
  return images_.emplace(type, static_cast<int>(images_.size()) + 1).first->second;
}

std::shared_ptr<Picture> FileShell::GetIcon(const std::string& path, EIconType type) {
  const std::string content = ContentTypeOf(path);
  if (content.empty()) return nullptr;
  try {
    const auto found = Gtk::IconTheme::get_default()->lookup_icon(
        Gio::content_type_get_icon(content), type == kIconLarge ? kLargePixels : kSmallPixels,
        Gtk::ICON_LOOKUP_FORCE_SIZE);
    if (found) return std::make_shared<PixbufPicture>(found.load_icon());
  } catch (const Glib::Error&) {  // a picture that cannot be read is a blank one
  }
  return nullptr;
}

std::string FileShell::TypeName(const std::string& path) {
  const std::string type = ContentTypeOf(path);
  return type.empty() ? "" : std::string(Gio::content_type_get_description(type));
}

void FileShell::MakeFolder(const std::string& path) {
  if (g_mkdir_with_parents(path.c_str(), kPrivateFolder) != 0) Fail(errno);
}

void FileShell::Rename(const std::string& path, const std::string& new_path) {
  if (renameat2(AT_FDCWD, path.c_str(), AT_FDCWD, new_path.c_str(), RENAME_NOREPLACE) == 0) return;
  if (errno != EINVAL) Fail(errno);
  // A file system without that call: the moment between the two matters to nobody.
  struct stat about {};
  if (lstat(new_path.c_str(), &about) == 0) Fail(EEXIST);
  if (std::rename(path.c_str(), new_path.c_str()) != 0) Fail(errno);
}

void FileShell::Remove(const std::string& path) {
  std::error_code error;
  const auto removed = fs::remove_all(path, error);
  if (error) Fail(error.value());
  if (removed == 0) Fail(ENOENT);
}

}  // namespace corvane::desktop
