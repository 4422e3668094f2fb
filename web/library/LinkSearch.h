#pragma once

#include <functional>
#include <string>
#include <vector>

#include "web/OwnPages.h"
#include "web/library/LinkFile.h"

namespace corvane {

/// Reads the link file of that path; without an address when there is no such
/// ordinary file.
LinkFile ReadLinkAt(const std::string& path);

/// Finds the link files and saved pages below some folders that lead somewhere and whose
/// name, title or address holds all the words, whatever their case; the newest
/// history day first within a folder. An address is found once. What the side bar
/// would refuse to follow is not found.
struct LinkSearch {
  std::vector<std::string> folders;
  std::string home;  ///< the user's home folder, for addresses that begin with "~"
  /// A text such that two that differ only in their letters' case become alike.
  std::function<std::string(const std::string& text)> folded;

  std::vector<SearchMatch> Find(const std::string& words) const;
};

}  // namespace corvane
