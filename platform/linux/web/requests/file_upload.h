#pragma once

#include <webkit2/webkit2.h>

#include "platform/file_request.h"

namespace corvane::desktop {

/// What a field of a page for files wants, as a request to the user. Answering it
/// answers the page; letting go of it leaves the field as it is.
FileRequest UploadRequest(WebKitFileChooserRequest* request);

}  // namespace corvane::desktop
