#include <algorithm>

#include "base/text.h"
#include "tests/fuzz/fuzz.h"
#include "web/library/BookmarkFile.h"
#include "web/library/LinkFile.h"

using namespace corvane;

// What other browsers export, cut into lines as the file system hands them over,
// and the files and folders that are made of it.
void FuzzOne(const std::string& input) {
  constexpr std::size_t kDeepest = 20;
  std::vector<std::string> lines;
  for (std::size_t start = 0; start <= input.size();) {
    const std::size_t end = std::min(input.find('\n', start), input.size());
    lines.push_back(text::valid(input.substr(start, end - start)));
    start = end + 1;
  }
  IsBookmarkFile(lines);
  for (const auto& bookmark : ReadBookmarkFile(lines)) {
    Promise(!bookmark.address.empty());
    Promise(bookmark.folders.size() <= kDeepest);
    for (const auto& folder : bookmark.folders) Promise(!folder.empty());
    Promise(text::valid(bookmark.title) == bookmark.title);
    Promise(text::valid(bookmark.address) == bookmark.address);
  }
}
