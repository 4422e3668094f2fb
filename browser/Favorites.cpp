#include "browser/Favorites.h"

#include "base/error.h"
#include "base/handling.h"
#include "base/safe_name.h"
#include "base/text.h"
#include "browser/ProfileValue.h"
#include "platform/shell_folder.h"
#include "web/library/BookmarkFile.h"
#include "web/library/LinkFile.h"

namespace corvane {
namespace {

constexpr int kMostNamesakes = 1000;
constexpr const char* kShortcut = ".url";
constexpr const char* kDesktopLink = ".desktop";

/// The name with the ending that makes the file what it is, once.
std::string WithEndingOf(const std::string& file, const std::string& name) {
  if (LinkKindOf(file) == LinkKind::None || LinkKindOf(file) == LinkKindOf(name)) return name;
  const auto dot = file.rfind('.');
  return dot == std::string::npos ? name : name + file.substr(dot);
}

std::string WithName(const std::vector<std::string>& lines, const std::string& name) {
  std::string content;
  for (const auto& line : lines) {
    if (line.starts_with("Name[")) continue;
    content += (line.starts_with("Name=") ? "Name=" + name : line) + "\n";
  }
  return content;
}

}  // namespace

std::string Favorites::SpecialPath(int number) const {
  const auto place = desktop_.GetShell().SpecialFolderLocation(number);
  if (!place) throw RunTimeError(kErrFileNotFound, "Favorites", "The folder cannot be made");
  return desktop_.GetShell().GetPathFromIdList(*place);
}

std::string Favorites::Folder() const { return SpecialPath(kFolderFavorites); }

std::string Favorites::Below(const std::string& folder, const std::string& name) const {
  return folder + desktop_.GetFileSystem().Separator() + name;
}

bool Favorites::IsBelow(const std::string& path, const std::string& folder) const {
  return path.starts_with(folder + desktop_.GetFileSystem().Separator());
}

// The established reader of shortcuts has no more room than that.
std::string Favorites::AddressIn(const std::string& path) const {
  // What counts as a saved page in the established manner ends in "htm".
  const bool is_newer = text::same_ignoring_case(text::mid(path, text::length(path) - 3), "html");
  if (is_newer && !manner_.today) return {};
  const std::string content = desktop_.GetFileSystem().ReadText(path, kMostOfLinkFile);
  const std::string address = ReadLinkFile(path, content).address;
  const bool is_cut = LinkKindOf(path) == LinkKind::Shortcut && !manner_.today;
  return is_cut ? text::left(address, kLongestProfileValue) : address;
}

// The established reader of shortcuts cuts what is too long for it: a longer
// address goes into a link file of the other kind, which is read whole.
Favorites::Kept Favorites::Add(const std::string& folder, const std::string& title,
                               const std::string& address) {
  FileSystem& files = desktop_.GetFileSystem();
  const bool is_short = text::length(address) <= kLongestProfileValue;
  const std::string name = SafeFileName(title.empty() ? address : title);
  for (int i = 1; i <= kMostNamesakes; ++i) {
    std::string numbered = Numbered(name, i);
    const std::string shortcut = Below(folder, numbered + kShortcut);
    const std::string link = Below(folder, numbered + kDesktopLink);
    for (const auto& path : {shortcut, link}) {
      if (files.Exists(path) && AddressIn(path) == address) return {numbered, false};
    }
    if (files.Exists(shortcut) || files.Exists(link)) continue;
    if (is_short) {
      files.Write(shortcut, ShortcutContent(address));
    } else {
      files.Write(link, DesktopLinkContent(numbered, address));
    }
    return {numbered, true};
  }
  throw RunTimeError(kErrDeviceIo, "Favorites", "There are too many favorites of that name");
}

void Favorites::Remove(const std::string& path) {
  if (!IsBelow(path, Folder()) && !IsBelow(path, SpecialPath(kFolderHistory))) {
    throw RunTimeError(kErrPermissionDenied, "Favorites", "This cannot be removed");
  }
  desktop_.GetShell().Remove(path);
}

std::string Favorites::Rename(const std::string& path, const std::string& name) {
  if (!IsBelow(path, Folder())) {
    throw RunTimeError(kErrPermissionDenied, "Favorites", "This cannot be renamed");
  }
  FileSystem& files = desktop_.GetFileSystem();
  const auto slash = path.rfind(files.Separator());
  const std::string file = WithEndingOf(path.substr(slash + 1), SafeFileName(name));
  const std::string new_path = Below(path.substr(0, slash), file);
  if (new_path != path) desktop_.GetShell().Rename(path, new_path);
  std::string shown = ShownFileName(file);
  if (LinkKindOf(path) == LinkKind::DesktopLink) {
    files.Write(new_path, WithName(files.ReadLines(new_path), shown));
  }
  return shown;
}

std::string Favorites::NewFolder(const std::string& name) const {
  for (int i = 1; i <= kMostNamesakes; ++i) {
    std::string numbered = Numbered(name, i);
    const std::string path = Below(Folder(), numbered);
    if (desktop_.GetFileSystem().Exists(path)) continue;
    desktop_.GetShell().MakeFolder(path);
    return numbered;
  }
  throw RunTimeError(kErrDeviceIo, "Favorites", "There are too many folders of that name");
}

Favorites::Imported Favorites::Import(const std::string& path) {
  const FileSystem& files = desktop_.GetFileSystem();
  const auto lines = files.ReadLines(path);
  if (!IsBookmarkFile(lines)) {
    throw RunTimeError(kErrTypeMismatch, "Favorites", "This is not a file of bookmarks");
  }
  const std::string file = path.substr(path.rfind(files.Separator()) + 1);
  Imported imported;
  imported.folder = NewFolder(SafeFileName(file.substr(0, file.rfind('.'))));
  const std::string top = Below(Folder(), imported.folder);
  for (const auto& bookmark : ReadBookmarkFile(lines)) {
    desktop_.DoEvents();
    if (IsHostileAddress(bookmark.address, "")) {
      ++imported.left_out;
      continue;
    }
    ErrorsIgnored([&] {
      ++imported.left_out;
      std::string folder = top;
      for (const auto& part : bookmark.folders) {
        folder = Below(folder, SafeFileName(part));
        desktop_.GetShell().MakeFolder(folder);
      }
      Add(folder, bookmark.title, bookmark.address);
      --imported.left_out;
      ++imported.pages;
    });
  }
  return imported;
}

}  // namespace corvane
