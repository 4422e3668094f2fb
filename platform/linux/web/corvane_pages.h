#pragma once

#include <string>
#include <vector>

namespace corvane::desktop {

/// Scheme of the pages that the program serves itself.
inline constexpr const char* kCorvaneScheme = "corvane";
inline constexpr const char* kHomePage = "corvane://home/cv/";

/// Where the program's own pages lead to a file: the engine lets no page but a
/// file's own do that, and is told to load it itself. What follows is the path as
/// in a file's address.
inline constexpr const char* kSavedPage = "corvane://saved";

/// The file that such an address leads to ("file:///..."); empty for any other.
std::string SavedFile(const std::string& address);

/// A favourite or a page of the history that fits the words searched.
struct SearchMatch {
  std::string title;
  std::string address;
};

/// Whether the address is a search of the fixed form
/// "corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=WORDS".
bool IsSearch(const std::string& address);

/// The words that a search address asks for. They reach to its end: the form
/// leaves all but blanks, quotes and plus signs as they are.
std::string SearchedWords(const std::string& address);

/// The address at the search service for the words; `service` holds "%s" where
/// they go. Empty without a usable service.
std::string ServiceAddress(const std::string& service, const std::string& words);

/// The start page.
std::string RenderHome();

/// The page that answers a search here; `service_failed` tells whether a service
/// is set (and could not be reached).
std::string RenderSearch(const std::string& words, const std::vector<SearchMatch>& matches,
                         bool service_failed);

}  // namespace corvane::desktop
