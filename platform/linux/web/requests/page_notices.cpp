#include "platform/linux/web/requests/page_notices.h"

#include <utility>

namespace corvane::desktop {

PageNotices::PageNotices(std::function<void(const std::string&)> say, Allowance::Clock now)
    : say_(std::move(say)), now_(std::move(now)), allowance_(kMost, kSeconds, now_) {}

void PageNotices::Tell(const std::string& sentence) {
  const gint64 now = now_();
  if (sentence == last_ && now - last_told_ < kSameAgain * G_USEC_PER_SEC) return;
  if (!allowance_.Take()) return;
  last_ = sentence;
  last_told_ = now;
  say_(sentence);
}

}  // namespace corvane::desktop
