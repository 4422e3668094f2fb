#pragma once

#include <string>
#include <string_view>

/// Names made of words from elsewhere: a page's title, what a server calls a
/// file, a folder in another browser's bookmarks. Whoever shows, says or stores
/// such words as a name takes them through here.
namespace corvane {

/// The words as one line on which everything is seen and heard in the order in
/// which it stands: no control characters, none that turn the direction of text,
/// none that are invisible, and blanks of every kind as one blank.
std::string PlainName(std::string_view words);

/// At most `longest` characters of the words, then "..." where some were cut.
std::string Shorten(std::string_view words, std::size_t longest);

/// The words as a file's name, without anything that a file system, a shell or a
/// person could mistake: PlainName, no path, not hidden, and so short that " 1000"
/// and an ending can be put behind it everywhere. An ending like ".pdf" is kept.
/// `fallback` stands for words of which nothing is left.
std::string SafeFileName(std::string_view words, const std::string& fallback = "page");

/// The name of the `number`th of those that would have the same: from the second on with
/// its number behind it.
std::string Numbered(const std::string& name, int number);

/// Where a file name's ending starts ("report" | ".pdf"); its length when it has
/// none.
std::size_t EndingOf(std::string_view name);

}  // namespace corvane
