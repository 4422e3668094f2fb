#include "explorer/IconCache.h"

#include <algorithm>
#include <array>
#include <utility>

namespace corvane {
namespace {

constexpr int kPause = 25;  // milliseconds after each new icon

std::string Upper(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  return text;
}

// Files of these kinds carry their own icons.
bool HasItsOwnIcon(const std::string& extension) {
  constexpr std::array kOwn = {"ICO", "EXE", "DLL", "OCX"};
  return std::find(kOwn.begin(), kOwn.end(), extension) != kOwn.end();
}

std::string KeyOfFile(const std::string& path, char separator) {
  const auto name = path.rfind(separator);
  const auto dot = path.rfind('.');
  const bool has_extension = dot != std::string::npos && (name == std::string::npos || dot > name);
  const std::string extension = has_extension ? Upper(path.substr(dot + 1)) : "";
  return (HasItsOwnIcon(extension) ? Upper(path) : extension) + "k";
}

}  // namespace

IconCache::IconCache(Desktop& desktop, std::shared_ptr<ImageList> ImageLarge,
                     std::shared_ptr<ImageList> ImageSmall)
    : desktop_(desktop), ImageLarge_(std::move(ImageLarge)), ImageSmall_(std::move(ImageSmall)) {}

int IconCache::IndexOf(const ItemIdList& place) {
  Shell& shell = desktop_.GetShell();
  const int system_index = shell.SystemImageIndex(place);
  if (system_index == 0) return 0;
  const std::string key = std::to_string(system_index) + "K";
  const int known = Find(key);
  return known != 0 ? known : Add(key, shell.GetPathFromIdList(place));
}

int IconCache::IndexOfFile(const std::string& path, bool is_folder) {
  const std::string key =
      is_folder ? "DIRk" : KeyOfFile(path, desktop_.GetFileSystem().Separator());
  if (const int known = Find(key)) return known;
  const int index = Add(key, path);
  ImageLarge_->SetTag(index, desktop_.GetShell().TypeName(path));
  return index;
}

int IconCache::Find(const std::string& key) const {
  for (int i = ImageLarge_->Count(); i >= 1; --i) {
    if (ImageLarge_->Key(i) == key) return i;
  }
  return 0;
}

int IconCache::Add(const std::string& key, const std::string& path) {
  Shell& shell = desktop_.GetShell();
  const int index = ImageLarge_->Add(key, shell.GetIcon(path, kIconLarge));
  desktop_.Pause(kPause);
  ImageSmall_->Add(key, shell.GetIcon(path, kIconSmall));
  desktop_.Pause(kPause);
  return index;
}

}  // namespace corvane
