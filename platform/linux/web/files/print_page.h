#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>

namespace corvane::desktop {

/// Shows the desktop's print dialog, which can also print into a file, and
/// prints the page as chosen there. Returns at once; `say` tells how it went,
/// also after the view has gone.
void PrintPage(WebKitWebView* view, std::function<void(const std::string&)> say);

}  // namespace corvane::desktop
