#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/pdf/node.h"
#include "platform/linux/pdf/page_words.h"

namespace corvane::pdf {

/// The name that leads to a page, as other programs know it too: "page=3".
std::string NameOfPage(int page);

/// Gives each place in the document to which something leads a name: that of its page,
/// and a number behind it for those further down.
class Places {
 public:
  /// The address of a link to the target.
  std::string AddressOf(const Target& target);
  /// Puts the names at what lies there.
  void Mark(std::vector<Node>& nodes) const;

 private:
  std::map<std::pair<int, int>, int> numbers_;  // of (page, points from its top)
};

}  // namespace corvane::pdf
