#pragma once

#include <memory>
#include <string>

#include "platform/desktop.h"
#include "platform/image_list.h"
#include "platform/shell_folder.h"

namespace corvane {

/// The icons of folders and files in two image lists, which all items of a tree
/// share. Each icon is fetched from the system once per key; after each the
/// events run for a moment.
class IconCache {
 public:
  IconCache(Desktop& desktop, std::shared_ptr<ImageList> ImageLarge,
            std::shared_ptr<ImageList> ImageSmall);

  /// The index of a place's icon in the large list; 0 when the system has none.
  /// Places with the same system image share one.
  int IndexOf(const ItemIdList& place);
  /// The same by file name: files of one extension share an icon, but programs
  /// and icon files have their own. The image is tagged with the file's type.
  int IndexOfFile(const std::string& path, bool is_folder);

 private:
  int Find(const std::string& key) const;
  int Add(const std::string& key, const std::string& path);

  Desktop& desktop_;
  std::shared_ptr<ImageList> ImageLarge_;
  std::shared_ptr<ImageList> ImageSmall_;
};

}  // namespace corvane
