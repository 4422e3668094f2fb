#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/web/page/page_script.h"
#include "platform/page_words.h"
#include "web/requests/Allowance.h"

namespace corvane::desktop {

/// Tells what the pages of a view say by themselves.
class LiveRegions {
 public:
  LiveRegions(WebKitWebView* view, std::function<void(const PageWords&)> say);

  /// As WebBrowser::EnterDialog.
  bool EnterDialog(std::function<void()> gone);
  /// Another page is shown.
  void PageChanged() { dialog_waits_ = false; }

 private:
  void Receive(const std::string& kind, const std::string& text);

  // The script allows ten a second of each frame; a process gone bad might not.
  static constexpr int kMost = 300;
  static constexpr int kSeconds = 10;

  WebKitWebView* view_;
  std::function<void(const PageWords&)> say_;
  std::shared_ptr<LiveRegions*> self_;  // answers that come after it find it gone
  int entered_ = 0;                     // counts the ways into a dialog that were asked for
  bool dialog_waits_ = false;           // it has opened without taking the focus
  Allowance allowance_{kMost, kSeconds};
  PageScript script_;
};

}  // namespace corvane::desktop
