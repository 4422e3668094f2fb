#pragma once

#include <string>

namespace corvane {

/// Whether an address must not be followed from a list or tree. `from` is the
/// address of the page that has it; empty when it comes out of a file. Pages made
/// of their address are never followed, scripts only as their page's own links;
/// files and the program's own pages not when a page from elsewhere asks; the
/// program's own pages may lead anywhere.
bool IsHostileAddress(const std::string& address, const std::string& from);

/// What is said when an address is not followed.
std::string RefusedWords(const std::string& address);

/// A name without what a file system could mistake, and not too long.
std::string SafeFileName(const std::string& name);

/// The content of an Internet shortcut, and of a desktop link file.
std::string ShortcutContent(const std::string& address);
std::string DesktopLinkContent(const std::string& name, const std::string& address);

}  // namespace corvane
