#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>

namespace corvane::desktop {

/// A path for a page of that title in the user's download folder, which is made if
/// need be, that no file has yet.
std::string ProposeSavePath(const std::string& title);

/// The title as a file name, without anything that a file system could mistake.
std::string FileNameOf(const std::string& title);

/// Saves the page with its pictures into one file (MHTML); `done` gets a text
/// that tells how it went.
void SavePage(WebKitWebView* view, const std::string& path,
              std::function<void(const std::string& outcome)> done);

}  // namespace corvane::desktop
