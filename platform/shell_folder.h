#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/control.h"
#include "platform/image_list.h"

namespace corvane {

/// Attribute bits of what lies in folders.
enum ShellAttributes : std::uint32_t {
  kAttributeCanLink = 0x00000004,
  kAttributeLink = 0x00010000,  ///< a link to a file, or a file that holds an address
  kAttributeFolder = 0x20000000,
  kAttributeFileSystem = 0x40000000,
  kAttributeHasSubFolder = 0x80000000,  ///< a folder that can be opened: it holds something
};

/// What an enumeration of a folder includes.
enum ShellContents : int {
  kContentsFolders = 0x20,
  kContentsNonFolders = 0x40,
  kContentsHidden = 0x80,
};

/// Folders that are known by a number.
enum SpecialFolder : int { kFolderDesktop = 0, kFolderFavorites = 6, kFolderHistory = 34 };

/// A place in the shell's folders: its names from the top down. An empty list is
/// the desktop, the folder above all.
using ItemIdList = std::vector<std::string>;

/// The sizes of an item's icon.
enum EIconType : int { kIconSmall = 1, kIconLarge = 2 };

/// Goes through what lies in a folder. Nothing here takes longer than a few
/// milliseconds, whatever the folder holds: the caller lets events run in
/// between. A folder that vanishes meanwhile ends it.
class ShellEnumerator {
 public:
  virtual ~ShellEnumerator() = default;
  /// Reads on; false once everything has been read. Only then are there items.
  virtual bool Read() = 0;
  /// The next item's name, folders first, then as people sort; false at the end.
  virtual bool Next(std::string& name) = 0;
};

/// A folder of the shell.
class ShellFolder {
 public:
  virtual ~ShellFolder() = default;
  /// What it holds (ShellContents); nothing of a folder that cannot be read.
  virtual std::unique_ptr<ShellEnumerator> EnumObjects(int contents) = 0;
  /// Those of an item's attributes that `mask` asks for; none when they cannot
  /// be read.
  virtual std::optional<std::uint32_t> GetAttributesOf(const std::string& name,
                                                       std::uint32_t mask) = 0;
  /// The name for people.
  virtual std::string GetDisplayNameOf(const std::string& name) = 0;
  /// What the item is opened by: its path, or in the history its address; empty
  /// where there is neither.
  virtual std::string GetPathOf(const std::string& name) = 0;
};

/// The desktop's folders, what they hold, and what can be done to it.
class Shell {
 public:
  virtual ~Shell() = default;

  /// The place of a special folder; none when there is no such folder.
  virtual std::optional<ItemIdList> SpecialFolderLocation(int number) = 0;
  /// The place that a path means; none when nothing is there.
  virtual std::optional<ItemIdList> ParseDisplayName(const std::string& path) = 0;
  /// The path of a place.
  virtual std::string GetPathFromIdList(const ItemIdList& place) = 0;
  virtual std::shared_ptr<ShellFolder> BindToFolder(const ItemIdList& place) = 0;

  /// The number of an item's icon in the system's own list; 0 when it has none.
  virtual int SystemImageIndex(const ItemIdList& place) = 0;
  /// The icon of the file or folder at the path; null when there is none.
  virtual std::shared_ptr<Picture> GetIcon(const std::string& path, EIconType type) = 0;
  /// What kind of file it is, in words for people.
  virtual std::string TypeName(const std::string& path) = 0;

  /// Makes a folder; one that is there already is no error.
  virtual void MakeFolder(const std::string& path) = 0;
  /// Moves or renames; RunTimeError also when something of the new name exists.
  virtual void Rename(const std::string& path, const std::string& new_path) = 0;
  /// Removes a file or a folder with all it holds, no link followed.
  virtual void Remove(const std::string& path) = 0;
};

}  // namespace corvane
