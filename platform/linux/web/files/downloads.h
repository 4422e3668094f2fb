#pragma once

#include <webkit2/webkit2.h>

#include <deque>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/web/files/download.h"
#include "web/requests/QuestionDesk.h"

namespace corvane::desktop {

/// All files that come from the network into the user's download folder. Nothing
/// there is overwritten.
class Downloads {
 public:
  /// `say` speaks a sentence in the window of that view, or in any one window when
  /// it is null. `folder` empty: the user's download folder.
  using Say = std::function<void(WebKitWebView* view, const std::string& sentence)>;
  Downloads(std::shared_ptr<Questions> questions, std::string folder, Say say);
  ~Downloads();
  Downloads(const Downloads&) = delete;
  Downloads& operator=(const Downloads&) = delete;

  /// The engine has begun to fetch a file.
  void Begin(WebKitDownload* download);
  /// Whether a file is coming.
  bool Any() const { return !running_.empty(); }
  /// Those that the user wanted, the last one first: coming, and over since the
  /// program's start. Of these the oldest are forgotten.
  std::vector<DownloadState> List() const;
  /// Gives up the one of that number; nothing when it is not coming.
  void Stop(int number);
  /// Gives up all that are coming.
  void StopAll();

 private:
  static constexpr std::size_t kMostRemembered = 50;

  Download::Host HostFor(int number);
  void Over(int number);
  std::string FreePathFor(const std::string& name) const;

  std::string folder_;
  Say say_;
  WebKitWebView* asking_ = nullptr;  // the window that a question is asked for just now
  QuestionDesk desk_;
  int last_number_ = 0;
  std::list<std::unique_ptr<Download>> running_;
  std::deque<DownloadState> over_;  // the last one first
};

}  // namespace corvane::desktop
