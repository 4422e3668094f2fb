#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "platform/shell_folder.h"

namespace corvane::desktop {

/// The shell's folders on the file system: a place is a path, the desktop its
/// root. Favorites and History are ordinary folders below the user's data
/// folder; in the history an item is opened by the address that it holds.
class FileShell : public Shell {
 public:
  /// `data` is the folder that has "Favorites" and "History".
  explicit FileShell(std::string data);

  std::optional<ItemIdList> SpecialFolderLocation(int number) override;
  std::optional<ItemIdList> ParseDisplayName(const std::string& path) override;
  std::string GetPathFromIdList(const ItemIdList& place) override;
  std::shared_ptr<ShellFolder> BindToFolder(const ItemIdList& place) override;

  int SystemImageIndex(const ItemIdList& place) override;
  std::shared_ptr<Picture> GetIcon(const std::string& path, EIconType type) override;
  std::string TypeName(const std::string& path) override;

  void MakeFolder(const std::string& path) override;
  void Rename(const std::string& path, const std::string& new_path) override;
  void Remove(const std::string& path) override;

 private:
  const std::string data_;
  std::unordered_map<std::string, int> images_;  // numbers of content types
};

}  // namespace corvane::desktop
