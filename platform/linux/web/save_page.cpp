#include "platform/linux/web/save_page.h"

#include <filesystem>
#include <memory>
#include <utility>

#include "platform/linux/web/file_names.h"
#include "platform/linux/web/gobject.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestName = 60;
constexpr const char* kFilter = "Web page in one file (*.mhtml)|*.mhtml|All files|*";
constexpr const char* kForbidden = "/\\:*?\"<>|";

struct SaveJob {
  std::string path;
  std::function<void(const std::string&)> done;
};

void OnSaved(GObject* view, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<SaveJob> job(static_cast<SaveJob*>(data));
  GError* raw = nullptr;
  const bool saved = webkit_web_view_save_to_file_finish(WEBKIT_WEB_VIEW(view), result, &raw);
  const ErrorPtr error(raw);
  job->done(saved ? "Saved as " + job->path
                  : "The page could not be saved: " + (error ? Text(error->message) : job->path));
}

}  // namespace

std::string FileNameOf(const std::string& title) {
  std::string name;
  for (const char c : Shorten(title, kLongestName)) {
    const bool usable = static_cast<unsigned char>(c) >= 32 && c != 127 &&
                        std::string(kForbidden).find(c) == std::string::npos;
    name += usable ? c : ' ';
  }
  const auto start = name.find_first_not_of(" .");
  if (start == std::string::npos) return "page";
  return name.substr(start, name.find_last_not_of(" .") - start + 1);
}

FileRequest SaveRequest(const std::string& title) {
  std::error_code error;
  std::filesystem::create_directories(DownloadFolder(), error);
  FileRequest request;
  request.kind = FileRequest::Kind::Save;
  request.title = "Save as";
  request.name = FreePath(DownloadFolder(), FileNameOf(title) + ".mhtml");
  request.filter = kFilter;
  request.default_extension = "mhtml";
  return request;
}

void SavePage(WebKitWebView* view, const std::string& path,
              std::function<void(const std::string&)> done) {
  const ObjectPtr<GFile> file(g_file_new_for_path(path.c_str()));
  webkit_web_view_save_to_file(view, file.get(), WEBKIT_SAVE_MODE_MHTML, nullptr, &OnSaved,
                               new SaveJob{path, std::move(done)});
}

}  // namespace corvane::desktop
