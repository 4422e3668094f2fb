#include "explorer/mIShellFolder.h"

#include <algorithm>

namespace corvane::mIShellFolder {
namespace {

constexpr std::size_t kMostDigits = 5;  // no special folder has a longer number

bool IsNumber(const std::string& text) {
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

bool IsDesktop(const ItemIdList& place) { return place.empty(); }

ItemIdList Concatenated(const ItemIdList& parent, const std::string& name) {
  ItemIdList place = parent;
  place.push_back(name);
  return place;
}

ItemIdList ParentOf(const ItemIdList& place) {
  ItemIdList parent = place;
  if (!parent.empty()) parent.pop_back();
  return parent;
}

std::string LastItem(const ItemIdList& place) { return place.empty() ? "" : place.back(); }

std::optional<ItemIdList> PlaceOf(Shell& shell, const std::string& path) {
  if (IsNumber(path)) return shell.SpecialFolderLocation(std::stoi(path));
  return shell.ParseDisplayName(path);
}

std::shared_ptr<ShellFolder> ParentFolder(Shell& shell, const ItemIdList& place) {
  return shell.BindToFolder(ParentOf(place));
}

}  // namespace corvane::mIShellFolder
