#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <list>
#include <memory>
#include <string>

#include "platform/linux/web/question_desk.h"

namespace corvane::desktop {

/// Files that come from the network into the user's download folder: asked
/// before, told while they come and when they are there. Nothing is overwritten.
/// What stops halfway stays under a name that says so.
class Downloads {
 public:
  /// `say` speaks a sentence in the window of that view, or anywhere when it is
  /// null. `folder` empty: the user's download folder.
  using Say = std::function<void(WebKitWebView* view, const std::string& sentence)>;
  Downloads(std::shared_ptr<Questions> questions, std::string folder, Say say);
  ~Downloads();
  Downloads(const Downloads&) = delete;
  Downloads& operator=(const Downloads&) = delete;

  /// The engine has begun to fetch a file.
  void Begin(WebKitDownload* download);
  /// Whether a file is coming.
  bool Any() const { return !running_.empty(); }
  /// Gives up all that are coming.
  void StopAll();

 private:
  class Item;
  void Remove(const Item& item);

  std::string folder_;
  Say say_;
  QuestionDesk desk_;
  std::list<std::unique_ptr<Item>> running_;
};

}  // namespace corvane::desktop
