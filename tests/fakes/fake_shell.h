#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "platform/shell_folder.h"

namespace corvane::fakes {

/// Folders in memory. Paths are absolute, with "/" between the names.
class FakeShell : public Shell {
 public:
  struct Entry {
    std::optional<std::uint32_t> attributes = kAttributeFileSystem | kAttributeCanLink;
    std::string display;    ///< the name where it is empty
    std::string opened_by;  ///< the path where it is empty
    int image = 0;
  };
  FakeShell() {
    Folder("/data");
    Folder("/data/Favorites");
    Folder("/data/History");
  }
  Entry& File(const std::string& path, int image = 0) {
    entries[path].image = image;
    return entries[path];
  }
  Entry& Folder(const std::string& path) {
    entries[path].attributes =
        kAttributeFileSystem | kAttributeCanLink | kAttributeFolder | kAttributeHasSubFolder;
    return entries[path];
  }

  std::optional<ItemIdList> SpecialFolderLocation(int number) override {
    if (number == kFolderDesktop) return ItemIdList();
    if (number == kFolderFavorites) return ParseDisplayName("/data/Favorites");
    if (number == kFolderHistory) return ParseDisplayName(history);
    return std::nullopt;
  }
  std::optional<ItemIdList> ParseDisplayName(const std::string& path) override {
    if (!path.starts_with('/')) return std::nullopt;
    ItemIdList place;
    std::string name;
    for (const char c : path + '/') {
      if (c != '/') {
        name += c;
      } else if (!name.empty()) {
        place.push_back(std::exchange(name, {}));
      }
    }
    const bool known = place.empty() || entries.count(GetPathFromIdList(place)) != 0;
    return known ? std::optional(place) : std::nullopt;
  }
  std::string GetPathFromIdList(const ItemIdList& place) override {
    std::string path;
    for (const auto& name : place) path += '/' + name;
    return path.empty() ? "/" : path;
  }
  std::shared_ptr<ShellFolder> BindToFolder(const ItemIdList& place) override {
    return std::make_shared<Bound>(*this, place.empty() ? "" : GetPathFromIdList(place));
  }
  int SystemImageIndex(const ItemIdList& place) override {
    const auto at = entries.find(GetPathFromIdList(place));
    return at == entries.end() ? 0 : at->second.image;
  }
  std::shared_ptr<Picture> GetIcon(const std::string& path, EIconType type) override {
    icons_fetched.emplace_back(path, type);
    return nullptr;
  }
  std::string TypeName(const std::string& path) override { return "type of " + path; }
  void MakeFolder(const std::string& path) override { Folder(path); }
  void Rename(const std::string& path, const std::string& new_path) override {
    if (entries.count(path) == 0 || entries.count(new_path) != 0) {
      throw RunTimeError(kErrDeviceIo, "Shell", "File exists");
    }
    entries[new_path] = entries[path];
    entries.erase(path);
  }
  void Remove(const std::string& path) override {
    if (entries.count(path) == 0) throw RunTimeError(kErrFileNotFound, "Shell", "No such file");
    std::erase_if(entries, [&](const auto& entry) {
      return entry.first == path || entry.first.starts_with(path + '/');
    });
  }

  std::map<std::string, Entry> entries;
  std::string history = "/data/History";  ///< the special folder
  std::vector<std::pair<std::string, EIconType>> icons_fetched;

 private:
  struct Names : ShellEnumerator {
    bool Read() override { return std::exchange(unread, false); }
    bool Next(std::string& name) override {
      if (names.empty()) return false;
      name = names.front();
      names.erase(names.begin());
      return true;
    }
    bool unread = true;
    std::vector<std::string> names;
  };
  struct Bound : ShellFolder {
    Bound(FakeShell& the_shell, std::string the_path)
        : shell(the_shell), path(std::move(the_path)) {}
    std::unique_ptr<ShellEnumerator> EnumObjects(int contents) override {
      auto all = std::make_unique<Names>();
      for (const auto& [at, entry] : shell.entries) {
        if (!at.starts_with(path + '/') || at.find('/', path.size() + 1) != std::string::npos)
          continue;
        const std::string name = at.substr(path.size() + 1);
        const bool folder = (entry.attributes.value_or(0) & kAttributeFolder) != 0;
        if (name.starts_with('.') && (contents & kContentsHidden) == 0) continue;
        if ((contents & (folder ? kContentsFolders : kContentsNonFolders)) != 0) {
          all->names.push_back(name);
        }
      }
      return all;
    }
    std::optional<std::uint32_t> GetAttributesOf(const std::string& name,
                                                 std::uint32_t mask) override {
      const auto& attributes = shell.entries.at(path + '/' + name).attributes;
      return attributes ? std::optional(*attributes & mask) : std::nullopt;
    }
    std::string GetDisplayNameOf(const std::string& name) override {
      if (name.empty()) return "Desktop";
      const auto& display = shell.entries.at(path + '/' + name).display;
      return display.empty() ? name : display;
    }
    std::string GetPathOf(const std::string& name) override {
      const std::string full = path + '/' + name;
      const auto& opened_by = shell.entries.at(full).opened_by;
      return opened_by.empty() ? full : opened_by;
    }
    FakeShell& shell;
    const std::string path;
  };
};

}  // namespace corvane::fakes
