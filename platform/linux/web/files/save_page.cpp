#include "platform/linux/web/files/save_page.h"

#include <filesystem>
#include <memory>
#include <utility>

#include "base/safe_name.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/files/download_folder.h"
#include "web/library/FreePath.h"

namespace corvane::desktop {
namespace {

constexpr const char* kFilter = "Web page in one file (*.mhtml)|*.mhtml|All files|*";

struct SaveJob {
  std::string path;
  std::function<void(const std::string&)> done;
  BytesPtr page;

  void Tell(const GError* error) const {
    const GText shown(g_filename_display_name(path.c_str()));
    done(error == nullptr ? "Saved as " + Text(shown.get())
                          : "The page could not be saved: " + Text(error->message));
  }
};

/// What the engine has packed; it lies in memory.
GBytes* WholeOf(GInputStream* stream, GError** error) {
  const ObjectPtr<GOutputStream> all(g_memory_output_stream_new_resizable());
  const auto both = GOutputStreamSpliceFlags(G_OUTPUT_STREAM_SPLICE_CLOSE_SOURCE |
                                             G_OUTPUT_STREAM_SPLICE_CLOSE_TARGET);
  if (g_output_stream_splice(all.get(), stream, both, nullptr, error) < 0) return nullptr;
  return g_memory_output_stream_steal_as_bytes(G_MEMORY_OUTPUT_STREAM(all.get()));
}

// On a thread of its own: disks can be slow. The file changes whole or not at all.
void Write(GTask* task, gpointer, gpointer data, GCancellable*) {
  const auto* job = static_cast<SaveJob*>(data);
  gsize size = 0;
  const auto* content = static_cast<const char*>(g_bytes_get_data(job->page.get(), &size));
  GError* error = nullptr;
  if (g_file_set_contents_full(job->path.c_str(), content, static_cast<gssize>(size),
                               G_FILE_SET_CONTENTS_CONSISTENT, 0666, &error)) {
    g_task_return_boolean(task, TRUE);
  } else {
    g_task_return_error(task, error);
  }
}

void OnWritten(GObject*, GAsyncResult* result, gpointer) {
  GError* raw = nullptr;
  g_task_propagate_boolean(G_TASK(result), &raw);
  const ErrorPtr error(raw);
  static_cast<SaveJob*>(g_task_get_task_data(G_TASK(result)))->Tell(error.get());
}

void OnPacked(GObject* view, GAsyncResult* result, gpointer data) {
  std::unique_ptr<SaveJob> job(static_cast<SaveJob*>(data));
  GError* raw = nullptr;
  const ObjectPtr<GInputStream> stream(
      webkit_web_view_save_finish(WEBKIT_WEB_VIEW(view), result, &raw));
  if (stream) job->page.reset(WholeOf(stream.get(), &raw));
  const ErrorPtr error(raw);
  if (!job->page) return job->Tell(error.get());
  const ObjectPtr<GTask> task(g_task_new(nullptr, nullptr, &OnWritten, nullptr));
  g_task_set_task_data(task.get(), job.release(),
                       [](gpointer over) { delete static_cast<SaveJob*>(over); });
  g_task_run_in_thread(task.get(), &Write);
}

}  // namespace

FileRequest SaveRequest(const std::string& title) {
  std::error_code error;
  std::filesystem::create_directories(DownloadFolder(), error);
  FileRequest request;
  request.kind = FileRequest::Kind::Save;
  request.title = "Save as";
  request.name = FreePath(DownloadFolder(), SafeFileName(title) + ".mhtml");
  request.filter = kFilter;
  request.default_extension = "mhtml";
  return request;
}

void SavePage(WebKitWebView* view, const std::string& path,
              std::function<void(const std::string&)> done) {
  webkit_web_view_save(view, WEBKIT_SAVE_MODE_MHTML, nullptr, &OnPacked,
                       new SaveJob{path, std::move(done), nullptr});
}

}  // namespace corvane::desktop
