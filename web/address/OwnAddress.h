#pragma once

#include <string>
#include <string_view>

/// The names of the pages that the program serves itself.
namespace corvane {

/// Scheme of all of them.
inline constexpr const char* kCorvaneScheme = "corvane";
inline constexpr const char* kHomePage = "corvane://home/cv/";

bool IsOwnPage(std::string_view address);

/// How one of these pages leads to the address. The engine lets no page but a file's
/// own lead to a file, and is told to load that itself.
std::string LinkTo(const std::string& address);
/// The file that such a link leads to ("file:///..."); empty for any other address.
std::string SavedFile(const std::string& address);

/// Whether the address is a search of the fixed form
/// "corvane://search/cgi-bin/query?pg=q&text=yes&kl=XX&q=WORDS".
bool IsSearch(const std::string& address);
/// The words that a search address asks for. They reach to its end: the form
/// leaves all but blanks, quotes and plus signs as they are.
std::string SearchedWords(const std::string& address);
/// The address at the search service for the words; `service` holds "%s" where
/// they go. Empty without a usable service.
std::string ServiceAddress(const std::string& service, const std::string& words);

/// The address under which the engine loads and remembers a document of the network or
/// the disk that the program itself makes a page of.
std::string DocumentPage(const std::string& address);
bool IsDocumentPage(const std::string& address);
/// The address as the user knows it: that of the document for such a page of it, and any
/// other as it is.
std::string ShownAddress(const std::string& address);

/// The address without the place in the page that is named behind "#".
std::string WithoutPlace(const std::string& address);

}  // namespace corvane
