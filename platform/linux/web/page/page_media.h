#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <string>

#include "platform/linux/web/page/page_script.h"
#include "web/requests/PageNotices.h"

namespace corvane::desktop {

/// The sound of a view's pages: whether they may begin with it by themselves, and whether
/// they are heard at all.
class PageMedia {
 public:
  struct Host {
    /// Whether a page that is loaded now may not begin to sound by itself; may be empty.
    std::function<bool()> holds_back;
    /// A page begins to sound; may be empty.
    std::function<void()> sounds;
    /// Speaks a sentence.
    std::function<void(const std::string&)> say;
  };
  /// All must outlive this object.
  PageMedia(WebKitWebView* view, PageNotices& notices, Host host);
  ~PageMedia();
  PageMedia(const PageMedia&) = delete;
  PageMedia& operator=(const PageMedia&) = delete;

  /// Lets a page be loaded, with what its sound may do.
  void Use(WebKitPolicyDecision* navigation);
  /// Another page is shown.
  void PageChanged() { told_ = false; }
  /// Takes the sound from the view's pages, or gives it back, and says so.
  void SwitchMuted();

 private:
  void TellHeldBack();

  WebKitWebView* view_;
  PageNotices& notices_;
  Host host_;
  bool held_ = false;  // of the page that was loaded last
  bool told_ = false;  // of this page
  PageScript script_;
};

}  // namespace corvane::desktop
