#pragma once

#include <webkit2/webkit2.h>

#include <string>

#include "web/requests/Permissions.h"

namespace corvane::desktop {

/// What the page at that address wants to be allowed.
PermissionWish WishOf(WebKitPermissionRequest* request, const std::string& address);

}  // namespace corvane::desktop
