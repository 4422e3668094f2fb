#include "platform/linux/web/page/live_regions.h"

#include <utility>
#include <vector>

#include "web/page/WordsRecord.h"

namespace corvane::desktop {
LiveRegions::LiveRegions(WebKitWebView* view, std::function<void(const PageWords&)> say)
    : view_(view),
      say_(std::move(say)),
      self_(std::make_shared<LiveRegions*>(this)),
      script_(webkit_web_view_get_user_content_manager(view), std::vector{"live.js"}, "corvaneLive",
              [this](const std::string& kind, const std::string& text) { Receive(kind, text); }) {}

// Its element has the page's focus before the page gets the window's, so that nothing
// else of the page is told on the way.
bool LiveRegions::EnterDialog(std::function<void()> gone) {
  const int mine = ++entered_;
  if (!std::exchange(dialog_waits_, false)) return false;
  Evaluate(view_, "corvaneLive.enter()", nullptr,
           [weak = std::weak_ptr(self_), mine, gone = std::move(gone)](const auto& entered) {
             const auto self = weak.lock();
             if (!self || (*self)->entered_ != mine) return;  // the user has gone on
             if (!entered) return gone();
             gtk_widget_grab_focus(GTK_WIDGET((*self)->view_));
           });
  return true;
}

void LiveRegions::Receive(const std::string& kind, const std::string& text) {
  if (kind != "live" || !allowance_.Take()) return;
  const auto words = ParsePageWords(text);
  if (!words) return;
  dialog_waits_ = dialog_waits_ || !words->dialog.empty();
  say_(*words);
}

}  // namespace corvane::desktop
