#include "platform/linux/web/documents/document_fetch.h"
#include "web/DocumentProblem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <utility>

namespace corvane::desktop {
namespace {

constexpr guint64 kMostBytes = guint64{512} << 20U;
constexpr const char* kName = "document";

ErrorPtr ErrorOf(int number, const std::string& path) {
  return ErrorPtr(g_error_new(G_IO_ERROR, static_cast<int>(g_io_error_from_errno(number)), "%s: %s",
                              path.c_str(), g_strerror(number)));
}

/// Without waiting: a pipe that somebody has put there never opens.
OpenFile Open(const std::string& path) {
  OpenFile file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat facts {};
  if (!file || fstat(file.Number(), &facts) != 0) return {};
  if (S_ISREG(facts.st_mode)) return file;
  errno = EISDIR;
  return {};
}

void Remove(const std::string& folder) {
  std::error_code error;
  std::filesystem::remove_all(folder, error);
}

/// Removes the folder once more when the download that has been given up is over: the
/// engine may still be about to write there.
void RemoveWhenOver(WebKitDownload* download, const std::string& folder) {
  g_signal_connect_data(
      download, "finished", G_CALLBACK(+[](WebKitDownload*, gpointer data) {
        Remove(*static_cast<const std::string*>(data));
      }),
      new std::string(folder),
      [](gpointer data, GClosure*) { delete static_cast<std::string*>(data); }, G_CONNECT_AFTER);
}

}  // namespace

OpenFile::~OpenFile() {
  if (number_ >= 0) close(number_);
}

OpenFile OpenLocal(const std::string& address, ErrorPtr& failure) {
  GError* error = nullptr;
  const GText path(g_filename_from_uri(address.c_str(), nullptr, &error));
  if (!path) {
    failure.reset(error);
    return {};
  }
  OpenFile file = Open(path.get());
  if (!file) failure = ErrorOf(errno, path.get());
  return file;
}

DocumentFetch::DocumentFetch(WebKitDownload* download, bool check_kind, Host host)
    : download_(WEBKIT_DOWNLOAD(g_object_ref(download))),
      check_kind_(check_kind),
      host_(std::move(host)) {
  const auto connect = [this](const char* signal, GCallback handler) {
    g_signal_connect(download_.get(), signal, handler, this);
  };
  connect("decide-destination",
          G_CALLBACK(+[](WebKitDownload*, const char*, gpointer self) -> gboolean {
            static_cast<DocumentFetch*>(self)->Begin();
            return TRUE;
          }));
  connect("received-data", G_CALLBACK(+[](WebKitDownload*, guint64, gpointer self) {
            static_cast<DocumentFetch*>(self)->Progress();
          }));
  connect("failed", G_CALLBACK(+[](WebKitDownload*, GError* error, gpointer self) {
            static_cast<DocumentFetch*>(self)->failure_.reset(g_error_copy(error));
          }));
  connect("finished", G_CALLBACK(+[](WebKitDownload*, gpointer self) {
            static_cast<DocumentFetch*>(self)->Finished();
          }));
}

DocumentFetch::~DocumentFetch() {
  GiveUp();
  RemoveFolder();
}

void DocumentFetch::GiveUp() {
  g_signal_handlers_disconnect_by_data(download_.get(), this);
  if (std::exchange(over_, true)) return;
  if (!folder_.empty()) RemoveWhenOver(download_.get(), folder_);
  webkit_download_cancel(download_.get());
}

void DocumentFetch::RemoveFolder() {
  if (!folder_.empty()) Remove(std::exchange(folder_, ""));
}

void DocumentFetch::Begin() {
  WebKitURIResponse* response = webkit_download_get_response(download_.get());
  if (check_kind_ && response != nullptr &&
      !IsDocumentKind(Text(webkit_uri_response_get_mime_type(response)))) {
    GiveUp();
    return std::exchange(host_, {}).other_kind();
  }
  GError* error = nullptr;
  const GText folder(g_dir_make_tmp("corvane-document-XXXXXX", &error));  // nobody else's
  if (!folder) {
    failure_.reset(error);
    return webkit_download_cancel(download_.get());
  }
  folder_ = folder.get();
  const GText uri(g_filename_to_uri((folder_ + "/" + kName).c_str(), nullptr, nullptr));
  webkit_download_set_allow_overwrite(download_.get(), FALSE);
  webkit_download_set_destination(download_.get(), uri.get());
}

void DocumentFetch::Progress() {
  if (webkit_download_get_received_data_length(download_.get()) <= kMostBytes) return;
  GiveUp();
  std::exchange(host_, {}).too_big();
}

void DocumentFetch::Finished() {
  over_ = true;
  const Host host = std::exchange(host_, {});  // whoever is told lets go of this
  if (failure_) {
    const ErrorPtr failure = std::move(failure_);
    return host.failed(*failure);
  }
  const std::string path = folder_ + "/" + kName;
  OpenFile file = Open(path);
  const ErrorPtr failure = file ? nullptr : ErrorOf(errno, path);
  RemoveFolder();
  if (failure) return host.failed(*failure);
  host.done(std::move(file));
}

}  // namespace corvane::desktop
