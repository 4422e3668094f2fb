#pragma once

#include <string>
#include <vector>

namespace corvane {

/// One page in a bookmark file.
struct Bookmark {
  std::vector<std::string> folders;  ///< that it lies in, from the top down
  std::string title;
  std::string address;
};

/// Whether the lines begin a bookmark file, as browsers export it.
bool IsBookmarkFile(const std::vector<std::string>& lines);

/// The bookmarks in such a file, in their order. What has no address is left
/// out, and what is not well formed costs only itself.
std::vector<Bookmark> ReadBookmarkFile(const std::vector<std::string>& lines);

}  // namespace corvane
