#pragma once

#include <webkit2/webkit2.h>

#include <functional>

#include "platform/linux/glib/later.h"

namespace corvane::desktop {

/// Closing the window of a page. Only a page in which the user has done something
/// may have what would be lost, and the engine lets only such a page ask. It asks
/// once, and no page is waited for for long: no window is a trap.
class PageClosing {
 public:
  /// `close`: closes the window; `asks`: whether a question of the page is open.
  PageClosing(WebKitWebView* view, std::function<void()> close, std::function<bool()> asks);

  /// As WebBrowser::MayClose, of a page that answers.
  bool May();
  /// The user has done something in the page.
  void Touched() { touched_ = true; }
  /// Who goes on working after having stayed is asked again.
  void Worked() { asked_ = false; }
  /// The user stays on the page; true when this was about closing its window.
  bool Stay();
  /// The page agrees to be closed, or, `opened_by_page`, wants it by itself.
  void Agreed(bool opened_by_page);
  /// Another page is shown.
  void PageChanged() { touched_ = asked_ = asking_ = false; }

 private:
  WebKitWebView* view_;
  std::function<void()> close_;
  std::function<bool()> asks_;
  bool touched_ = false;
  bool asked_ = false;   // the next time it is not
  bool asking_ = false;  // just now
  Delay closing_;
};

}  // namespace corvane::desktop
