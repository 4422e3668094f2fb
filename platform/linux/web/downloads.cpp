#include "platform/linux/web/downloads.h"

#include <filesystem>
#include <utility>

#include "platform/linux/web/file_names.h"
#include "platform/linux/web/gobject.h"
#include "platform/linux/web/problem.h"

namespace corvane::desktop {
namespace {

namespace fs = std::filesystem;

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

/// One file that is coming.
class Downloads::Item {
 public:
  Item(Downloads& owner, WebKitDownload* download)
      : owner_(owner),
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
              static_cast<Item*>(self)->Ask(Text(name));
              return TRUE;
            }));
    connect("received-data", G_CALLBACK(+[](WebKitDownload*, guint64, gpointer self) {
              static_cast<Item*>(self)->Progress();
            }));
    connect("failed", G_CALLBACK(+[](WebKitDownload*, GError* error, gpointer self) {
              static_cast<Item*>(self)->Failed(*error);
            }));
    connect("finished", G_CALLBACK(+[](WebKitDownload*, gpointer self) {
              static_cast<Item*>(self)->Finished();
            }));
  }
  ~Item() {
    g_signal_handlers_disconnect_by_data(download_.get(), this);
    if (view_ != nullptr) {
      g_object_remove_weak_pointer(G_OBJECT(view_), reinterpret_cast<gpointer*>(&view_));
    }
  }
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;

  void Stop() { webkit_download_cancel(download_.get()); }

 private:
  void Ask(const std::string& suggested);
  void Save(const std::string& name);
  void Progress();
  void Failed(const GError& error);
  void Finished();
  void Say(const std::string& sentence) { owner_.say_(view_, sentence); }
  std::string Part() const { return path_ + kComing; }
  std::string Kept() const;
  void KeepPart();
  guint64 Expected() const;

  Downloads& owner_;
  ObjectPtr<WebKitDownload> download_;
  WebKitWebView* view_;
  std::shared_ptr<int> alive_ = std::make_shared<int>();
  std::string name_;
  std::string path_;  // empty until the user has said where
  std::string kept_;  // a second name of the file that is coming
  bool failed_ = false;
  int told_ = 0;  // percent
  gint64 told_at_ = 0;
};

guint64 Downloads::Item::Expected() const {
  WebKitURIResponse* response = webkit_download_get_response(download_.get());
  return response == nullptr ? 0 : webkit_uri_response_get_content_length(response);
}

void Downloads::Item::Ask(const std::string& suggested) {
  name_ = CleanFileName(suggested, "download");
  const std::string address =
      Text(webkit_uri_request_get_uri(webkit_download_get_request(download_.get())));
  const guint64 size = Expected();
  owner_.desk_.Ask(QuestionDesk::Asker::Page,
                   {"Download",
                    "Save a file from " + SiteOf(address) + "?" +
                        (size > 0 ? " Its size is " + SizeOf(size) + "." : ""),
                    {{.label = "File name", .value = name_}},
                    {"&Save", "&Cancel"}},
                   [this, weak = std::weak_ptr(alive_)](const auto& reply) {
                     if (weak.expired()) return;
                     if (!reply || reply->button != 0) return Stop();
                     Save(CleanFileName(reply->values.at(0), name_));
                   });
}

void Downloads::Item::Save(const std::string& name) {
  std::error_code error;
  fs::create_directories(owner_.folder_, error);
  path_ = FreePath(owner_.folder_, name);
  name_ = fs::path(path_).filename().string();
  told_at_ = g_get_monotonic_time();
  Say("Download begins: " + name_);
  const GText uri(g_filename_to_uri(path_.c_str(), nullptr, nullptr));
  webkit_download_set_allow_overwrite(download_.get(), FALSE);
  webkit_download_set_destination(download_.get(), uri.get());
}

// The engine deletes what has come when a download ends too early. A second name
// keeps it.
void Downloads::Item::KeepPart() {
  if (!kept_.empty()) return;
  const fs::path path(path_);
  const std::string name = path.stem().string() + " (not complete)" + path.extension().string();
  const std::string kept = FreePath(path.parent_path().string(), name);
  std::error_code error;
  fs::create_hard_link(Part(), kept, error);
  if (!error) kept_ = kept;
}

void Downloads::Item::Progress() {
  if (path_.empty()) return;
  KeepPart();
  const int percent =
      static_cast<int>(webkit_download_get_estimated_progress(download_.get()) * 100);
  const gint64 now = g_get_monotonic_time();
  if (percent < told_ + kReportStep || percent >= 100 || now - told_at_ < kBetweenReports) return;
  told_ = percent - percent % kReportStep;
  told_at_ = now;
  Say(std::to_string(percent) + " percent of " + name_);
}

void Downloads::Item::Failed(const GError& error) {
  failed_ = true;
  if (path_.empty()) return;  // the user did not want it
  const bool cancelled =
      g_error_matches(&error, WEBKIT_DOWNLOAD_ERROR, WEBKIT_DOWNLOAD_ERROR_CANCELLED_BY_USER);
  const guint64 came = webkit_download_get_received_data_length(download_.get());
  std::string sentence = cancelled ? "Download stopped: " + name_ + "."
                                   : "Download failed: " + name_ + ". " + Text(error.message) + ".";
  if (!kept_.empty() && came > 0) {
    const guint64 size = Expected();
    sentence += " " + SizeOf(came) + (size > 0 ? " of " + SizeOf(size) : "") +
                " came and are kept as " + fs::path(kept_).filename().string() + ".";
  }
  Say(sentence);
}

void Downloads::Item::Finished() {
  if (!failed_ && !path_.empty()) {
    std::error_code error;
    if (!kept_.empty()) fs::remove(kept_, error);
    Say("Download finished: " + name_ + " is in " +
        fs::path(path_).parent_path().filename().string());
  }
  owner_.Remove(*this);
}

Downloads::Downloads(std::shared_ptr<Questions> questions, std::string folder, Say say)
    : folder_(folder.empty() ? DownloadFolder() : std::move(folder)),
      say_(std::move(say)),
      desk_(std::move(questions), [this] {
        say_(nullptr, "Too many downloads were wanted at once. The rest is refused.");
      }) {}

Downloads::~Downloads() { desk_.Reset(); }

void Downloads::Begin(WebKitDownload* download) {
  running_.push_back(std::make_unique<Item>(*this, download));
}

void Downloads::Remove(const Item& item) {
  running_.remove_if([&](const auto& each) { return each.get() == &item; });
}

void Downloads::StopAll() {
  std::list<Item*> all;
  for (const auto& item : running_) all.push_back(item.get());
  for (Item* item : all) item->Stop();
}

}  // namespace corvane::desktop
