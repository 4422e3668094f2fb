#include "platform/linux/web/page_closing.h"

#include <utility>

namespace corvane::desktop {
namespace {

constexpr double kPatience = 2;  // seconds for a page that is asked whether it may close

}  // namespace

PageClosing::PageClosing(WebKitWebView* view, std::function<void()> close,
                         std::function<bool()> asks)
    : view_(view), close_(std::move(close)), asks_(std::move(asks)) {}

bool PageClosing::May() {
  if (!touched_) return true;
  if (std::exchange(asked_, true)) return true;
  asking_ = true;
  closing_.Start(kPatience, [this] {
    if (asking_ && !asks_()) close_();
  });
  webkit_web_view_try_close(view_);
  return false;
}

bool PageClosing::Stay() { return std::exchange(asking_, false); }

void PageClosing::Agreed(bool opened_by_page) {
  if (opened_by_page || asking_) closing_.Start(0, [this] { close_(); });
}

}  // namespace corvane::desktop
