#include "web/library/LinkSearch.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "base/read_file.h"
#include "base/text.h"
#include "web/address/TypedAddress.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostFiles = 2000;
constexpr std::size_t kMostMatches = 50;

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::vector<fs::path> LinksBelow(const std::string& folder) {
  std::vector<fs::path> found;
  std::error_code error;
  fs::recursive_directory_iterator each(folder, fs::directory_options::skip_permission_denied,
                                        error);
  while (!error && each != fs::recursive_directory_iterator() && found.size() < kMostFiles) {
    if (LinkKindOf(each->path().string()) != LinkKind::None) found.push_back(each->path());
    each.increment(error);
  }
  std::sort(found.rbegin(), found.rend());  // days are named so that the newest comes first
  return found;
}

/// The address in full, as a link of a page needs it; empty when it leads nowhere.
std::string InFull(const std::string& address, const std::string& home) {
  if (address.empty() || IsHostileAddress(address, "")) return {};
  const TypedAddress whole = ResolveTyped(address, home);
  return whole.uri.empty() ? whole.outside : whole.uri;
}

}  // namespace

LinkFile ReadLinkAt(const std::string& path) {
  const auto front = ReadFile(path, kMostOfLinkFile);
  return front ? ReadLinkFile(path, *front) : LinkFile();
}

std::vector<SearchMatch> LinkSearch::Find(const std::string& words) const {
  std::vector<SearchMatch> matches;
  const auto wanted = WordsOf(folded(text::valid(words)));
  if (wanted.empty()) return matches;
  for (const auto& folder : folders) {
    for (const auto& path : LinksBelow(folder)) {
      const LinkFile link = ReadLinkAt(path.string());
      const std::string name = ShownFileName(path.filename().string());
      const SearchMatch match{link.name.empty() ? name : link.name, InFull(link.address, home)};
      const std::string text = folded(text::valid(match.title + " " + name + " " + match.address));
      const bool fits = std::all_of(wanted.begin(), wanted.end(), [&](const auto& word) {
        return text.find(word) != std::string::npos;
      });
      const bool known = std::any_of(matches.begin(), matches.end(), [&](const auto& other) {
        return other.address == match.address;
      });
      if (match.address.empty() || !fits || known) continue;
      matches.push_back(match);
      if (matches.size() == kMostMatches) return matches;
    }
  }
  return matches;
}

}  // namespace corvane
