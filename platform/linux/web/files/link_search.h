#pragma once

#include <string>
#include <vector>

#include "browser/LinkFile.h"
#include "web/OwnPages.h"

namespace corvane::desktop {

/// Reads the link file of that path; without an address when there is no such
/// ordinary file.
LinkFile ReadLinkAt(const std::string& path);

/// The link files and saved pages below the folders that lead somewhere and whose
/// name, title or address holds all the words, whatever their case; the newest
/// history day first within a folder. An address is found once. What the side bar
/// would refuse to follow is not found.
std::vector<SearchMatch> FindLinks(const std::vector<std::string>& folders,
                                   const std::string& words);

}  // namespace corvane::desktop
