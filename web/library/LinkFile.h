#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Whether an address must not be followed from a list or tree. `from` is the
/// address of the page that has it; empty when it comes out of a file. Pages made
/// of their address are never followed, scripts only as their page's own links;
/// files and the program's own pages not when a page from elsewhere asks; the
/// program's own pages may lead anywhere.
bool IsHostileAddress(const std::string& address, const std::string& from);

/// What is said when an address is not followed.
std::string RefusedWords(const std::string& address);

/// What a file of the user's favourites or history is, told by its name's ending in
/// any case.
enum class LinkKind {
  None,
  Shortcut,     ///< an Internet shortcut: ".url"
  DesktopLink,  ///< ".desktop"
  Page,         ///< a saved page: ".htm", ".html"
};
LinkKind LinkKindOf(std::string_view path);

/// The bytes of such a file that are looked at.
inline constexpr std::size_t kMostOfLinkFile = 200'000;

/// What such a file says of itself.
struct LinkFile {
  std::string address;  ///< where it leads: for a saved page its own path; empty: nowhere
  std::string name;     ///< that it gives itself; empty where its file's name is all there is
};
/// Reads the file of that path. `languages` are those of the user, best first; a
/// desktop link may have a name for each.
LinkFile ReadLinkFile(const std::string& path, std::string_view content,
                      const std::vector<std::string>& languages = {});

/// The file's own name, for people: of a link file without its ending.
std::string ShownFileName(std::string_view name);

/// The content of an Internet shortcut, and of a desktop link file.
std::string ShortcutContent(const std::string& address);
std::string DesktopLinkContent(const std::string& name, const std::string& address);

}  // namespace corvane
