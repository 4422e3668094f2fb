#include "platform/linux/web/files/link_search.h"

#include <glib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/linux/glib/owner.h"
#include "web/address/TypedAddress.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostFiles = 2000;
constexpr std::size_t kMostMatches = 50;

std::string Folded(const std::string& text) {
  const GText valid(g_utf8_make_valid(text.c_str(), static_cast<gssize>(text.size())));
  const GText folded(g_utf8_casefold(valid.get(), -1));
  return Text(folded.get());
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream stream(Folded(text));
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
std::string InFull(const std::string& address) {
  if (address.empty() || IsHostileAddress(address, "")) return {};
  const TypedAddress whole = ResolveTyped(address, g_get_home_dir());
  return whole.uri.empty() ? whole.outside : whole.uri;
}

}  // namespace

LinkFile ReadLinkAt(const std::string& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return {};
  std::ifstream file(path, std::ios::binary);
  std::string front(kMostOfLinkFile, '\0');
  file.read(front.data(), static_cast<std::streamsize>(front.size()));
  return ReadLinkFile(path,
                      std::string_view(front).substr(0, static_cast<std::size_t>(file.gcount())));
}

std::vector<SearchMatch> FindLinks(const std::vector<std::string>& folders,
                                   const std::string& words) {
  std::vector<SearchMatch> matches;
  const auto wanted = WordsOf(words);
  if (wanted.empty()) return matches;
  for (const auto& folder : folders) {
    for (const auto& path : LinksBelow(folder)) {
      const LinkFile link = ReadLinkAt(path.string());
      const std::string name = ShownFileName(path.filename().string());
      const SearchMatch match{link.name.empty() ? name : link.name, InFull(link.address)};
      const std::string text = Folded(match.title + " " + name + " " + match.address);
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

}  // namespace corvane::desktop
