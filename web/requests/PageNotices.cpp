#include "web/requests/PageNotices.h"

#include <utility>

namespace corvane {

PageNotices::PageNotices(std::function<void(const std::string&)> say, Allowance::Clock now)
    : say_(std::move(say)), now_(std::move(now)), allowance_(kMost, kSeconds, now_) {}

void PageNotices::Tell(const std::string& sentence) {
  const double now = now_();
  if (sentence == last_ && now - last_told_ < kSameAgain) return;
  if (!allowance_.Take()) return;
  last_ = sentence;
  last_told_ = now;
  say_(sentence);
}

}  // namespace corvane
