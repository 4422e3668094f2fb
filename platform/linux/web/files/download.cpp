#include "platform/linux/web/files/download.h"

#include <filesystem>
#include <utility>

#include "base/language.h"
#include "base/safe_name.h"
#include "web/Problem.h"
#include "web/address/Address.h"
#include "web/library/FreePath.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;
using Phase = DownloadState::Phase;

constexpr gint64 kBetweenReports = 15 * G_USEC_PER_SEC;
constexpr int kReportStep = 25;                 // percent
constexpr const char* kComing = ".wkdownload";  // the engine's ending for what is not complete

std::string SizeOf(guint64 bytes) {
  const GText text(g_format_size(bytes));
  std::string size = Text(text.get());
  const std::string narrow = "\xC2\xA0";  // a blank that no synthesizer needs to know
  if (const auto at = size.find(narrow); at != std::string::npos) {
    size.replace(at, narrow.size(), " ");
  }
  return size;
}

}  // namespace

Download::Download(int number, WebKitDownload* download, Host host)
    : number_(number),
      host_(std::move(host)),
      download_(WEBKIT_DOWNLOAD(g_object_ref(download))),
      view_(webkit_download_get_web_view(download)) {
  if (view_ != nullptr) {
    g_object_add_weak_pointer(G_OBJECT(view_), reinterpret_cast<gpointer*>(&view_));
  }
  const auto connect = [this](const char* signal, GCallback handler) {
    g_signal_connect(download_.get(), signal, handler, this);
  };
  connect("decide-destination",
          G_CALLBACK(+[](WebKitDownload*, const char* name, gpointer self) -> gboolean {
            static_cast<Download*>(self)->Ask(Text(name));
            return TRUE;
          }));
  connect("received-data", G_CALLBACK(+[](WebKitDownload*, guint64, gpointer self) {
            static_cast<Download*>(self)->Progress();
          }));
  connect("failed", G_CALLBACK(+[](WebKitDownload*, GError* error, gpointer self) {
            static_cast<Download*>(self)->Failed(*error);
          }));
  connect("finished", G_CALLBACK(+[](WebKitDownload*, gpointer self) {
            static_cast<Download*>(self)->Finished();
          }));
}

Download::~Download() {
  g_signal_handlers_disconnect_by_data(download_.get(), this);
  if (view_ != nullptr) {
    g_object_remove_weak_pointer(G_OBJECT(view_), reinterpret_cast<gpointer*>(&view_));
  }
}

std::string Download::Part() const { return path_ + kComing; }

guint64 Download::Expected() const {
  WebKitURIResponse* response = webkit_download_get_response(download_.get());
  return response == nullptr ? 0 : webkit_uri_response_get_content_length(response);
}

int Download::Percent() const {
  return static_cast<int>(webkit_download_get_estimated_progress(download_.get()) * 100);
}

// Of a file whose size the server does not tell, how much has come is all there is.
std::string Download::HowFar() const {
  const guint64 size = Expected();
  if (size > 0) return std::to_string(Percent()) + " percent of " + SizeOf(size);
  return SizeOf(webkit_download_get_received_data_length(download_.get())) + " so far";
}

DownloadState Download::State() const {
  const auto words = [this]() -> std::string {
    switch (phase_) {
      case Phase::Finished:
        return "finished";
      case Phase::Stopped:
        return "stopped";
      case Phase::Failed:
        return "failed";
      case Phase::Asked:
      case Phase::Coming:
        break;
    }
    return HowFar();
  };
  return {number_, phase_, path_, name_ + ", " + words()};
}

void Download::Ask(const std::string& suggested) {
  name_ = SafeFileName(suggested, "download");
  const std::string address =
      Text(webkit_uri_request_get_uri(webkit_download_get_request(download_.get())));
  const guint64 size = Expected();
  host_.ask({"Download",
             "Save a file from " + SiteOf(address) + "?" +
                 (size > 0 ? " Its size is " + SizeOf(size) + "." : ""),
             {{.label = "File name", .value = name_, .from_page = true}},
             {"&Save", "&Cancel"}},
            [this, here = life_.Look()](const auto& reply) {
              if (!here) return;
              if (!reply || reply->button != 0) return Stop();
              Save(SafeFileName(reply->values.at(0), name_));
            });
}

void Download::Save(const std::string& name) {
  path_ = host_.free_path(name);
  name_ = fs::path(path_).filename().string();
  phase_ = Phase::Coming;
  told_at_ = g_get_monotonic_time();
  Say("Download begins: " + NameForEars());
  const GText uri(g_filename_to_uri(path_.c_str(), nullptr, nullptr));
  webkit_download_set_allow_overwrite(download_.get(), FALSE);
  webkit_download_set_destination(download_.get(), uri.get());
}

// Whoever sends a file names it: that is not to sound like the program.
std::string Download::NameForEars() const { return language::Marked(name_, language::kOfAPage); }

// The engine deletes what has come when a download ends too early. A second name
// keeps it.
void Download::KeepPart() {
  if (!kept_.empty()) return;
  const fs::path path(path_);
  const std::string name = path.stem().string() + " (not complete)" + path.extension().string();
  const std::string kept = FreePath(path.parent_path().string(), name);
  std::error_code error;
  fs::create_hard_link(Part(), kept, error);
  if (!error) kept_ = kept;
}

void Download::Progress() {
  if (path_.empty()) return;
  KeepPart();
  const int percent = Percent();
  const gint64 now = g_get_monotonic_time();
  if (percent < told_ + kReportStep || percent >= 100 || now - told_at_ < kBetweenReports) return;
  told_ = percent - percent % kReportStep;
  told_at_ = now;
  Say(std::to_string(percent) + " percent of " + NameForEars());
}

void Download::Failed(const GError& error) {
  const bool cancelled =
      g_error_matches(&error, WEBKIT_DOWNLOAD_ERROR, WEBKIT_DOWNLOAD_ERROR_CANCELLED_BY_USER);
  phase_ = cancelled ? Phase::Stopped : Phase::Failed;
  if (path_.empty()) return;  // the user did not want it
  std::string sentence =
      cancelled ? "Download stopped: " + NameForEars() + "."
                : "Download failed: " + NameForEars() + ". " + Text(error.message) + ".";
  std::error_code unknown;  // what the engine has told may lag behind the file
  const guint64 came = kept_.empty() ? 0 : fs::file_size(kept_, unknown);
  if (!unknown && came > 0) {
    const guint64 size = Expected();
    sentence += " " + SizeOf(came) + (size > 0 ? " of " + SizeOf(size) : "") +
                " came and are kept as " + fs::path(kept_).filename().string() + ".";
  }
  Say(sentence);
}

void Download::Finished() {
  if (phase_ == Phase::Coming) {
    phase_ = Phase::Finished;
    std::error_code error;
    if (!kept_.empty()) fs::remove(kept_, error);
    Say("Download finished: " + NameForEars() + " is in " +
        fs::path(path_).parent_path().filename().string());
  }
  const auto over = host_.over;
  over();
}

}  // namespace corvane::desktop
