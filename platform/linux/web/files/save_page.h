#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>

#include "platform/file_request.h"

namespace corvane::desktop {

/// A request for a file for the page of that title: in the user's download folder,
/// which is made if need be, under a name that no file has yet.
FileRequest SaveRequest(const std::string& title);

/// Saves the page with its pictures into one file (MHTML); `done` gets a text
/// that tells how it went. A file that was there before stays as it was when the
/// page cannot be saved.
void SavePage(WebKitWebView* view, const std::string& path,
              std::function<void(const std::string& outcome)> done);

}  // namespace corvane::desktop
