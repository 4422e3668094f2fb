#include "platform/linux/web/requests/file_upload.h"

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr const char* kAllFiles = "All files|*";

/// The types of content that the page takes, as a filter. The user may choose
/// others: pages are often wrong about what they can use.
std::string FilterFor(const char* const* types) {
  std::string patterns;
  for (; types != nullptr && *types != nullptr; ++types) {
    const std::string type = *types;
    if (type.find_first_of(";|") != std::string::npos) continue;
    patterns += (patterns.empty() ? "" : ";") + type;
  }
  return patterns.empty() ? kAllFiles
                          : "Files that the page asks for|" + patterns + "|" + kAllFiles;
}

}  // namespace

FileRequest UploadRequest(WebKitFileChooserRequest* request) {
  const bool several = webkit_file_chooser_request_get_select_multiple(request) != FALSE;
  FileRequest wanted;
  wanted.title = several ? "Choose files for the page" : "Choose a file for the page";
  wanted.filter = FilterFor(webkit_file_chooser_request_get_mime_types(request));
  wanted.several = several;
  // One that goes unanswered cancels itself.
  const std::shared_ptr<WebKitFileChooserRequest> held = Held(request);
  wanted.chosen = [held](const std::vector<std::string>& paths) {
    if (paths.empty()) return webkit_file_chooser_request_cancel(held.get());
    std::vector<const char*> names;
    for (const auto& path : paths) names.push_back(path.c_str());
    names.push_back(nullptr);
    webkit_file_chooser_request_select_files(held.get(), names.data());
  };
  return wanted;
}

}  // namespace corvane::desktop
