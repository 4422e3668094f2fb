#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/life.h"
#include "platform/linux/glib/owner.h"
#include "platform/questions.h"

namespace corvane::desktop {

/// How a file that comes from the network stands.
struct DownloadState {
  enum class Phase { Asked, Coming, Finished, Stopped, Failed };

  int number = 0;  ///< of the download; no two have the same
  Phase phase = Phase::Asked;
  std::string path;   ///< of the file, also while it is not there yet; empty: still asked
  std::string words;  ///< its name and how far it is, for people
};

/// One file that comes from the network: asked before, told while it comes and
/// when it is there. What stops halfway stays under a name that says so.
class Download {
 public:
  struct Host {
    /// Puts a question to the user; the reply is empty when it was not asked.
    std::function<void(DialogQuestion, std::function<void(const std::optional<DialogAnswer>&)>)>
        ask;
    /// Makes a path of that name in the folder, one that nothing else has.
    std::function<std::string(const std::string& name)> free_path;
    /// Speaks a sentence in the window that the download came from.
    std::function<void(WebKitWebView*, const std::string&)> say;
    /// It is over, one way or the other; the download may be destroyed from here.
    std::function<void()> over;
  };

  Download(int number, WebKitDownload* download, Host host);
  ~Download();
  Download(const Download&) = delete;
  Download& operator=(const Download&) = delete;

  DownloadState State() const;
  /// Where it comes from; null when that window has gone.
  WebKitWebView* View() const { return view_; }
  void Stop() { webkit_download_cancel(download_.get()); }

 private:
  void Ask(const std::string& suggested);
  void Save(const std::string& name);
  void Progress();
  void Failed(const GError& error);
  void Finished();
  std::string NameForEars() const;
  void Say(const std::string& sentence) { host_.say(view_, sentence); }
  std::string Part() const;
  void KeepPart();
  guint64 Expected() const;
  int Percent() const;
  std::string HowFar() const;

  const int number_;
  Host host_;
  ObjectPtr<WebKitDownload> download_;
  WebKitWebView* view_;
  Life life_;
  DownloadState::Phase phase_ = DownloadState::Phase::Asked;
  std::string name_;
  std::string path_;  // empty until the user has said where
  std::string kept_;  // a second name of the file that is coming
  int told_ = 0;      // percent
  gint64 told_at_ = 0;
};

}  // namespace corvane::desktop
