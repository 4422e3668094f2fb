#include "web/PageLeaving.h"

#include <utility>

namespace corvane {

PageLeaving::PageLeaving(Watchdog& watchdog, std::function<void()> end_page)
    : watchdog_(watchdog), end_page_(std::move(end_page)) {}

void PageLeaving::Leave(Go go) {
  if (problem_loads_) {
    after_problem_ = std::move(go);
    return;
  }
  go_ = std::move(go);
  if (watchdog_.Warned()) return EndPage();
  watchdog_.Hurry();
  go_();
}

void PageLeaving::EndPage() {
  hung_ = true;
  end_page_();
}

PageLeaving::Go PageLeaving::ProblemIsThere() {
  if (!std::exchange(problem_loads_, false)) return nullptr;
  return std::exchange(after_problem_, nullptr);
}

PageLeaving::Gone PageLeaving::ProcessGone(bool waiting) {
  const bool hung = std::exchange(hung_, false);
  if (Go after = ProblemIsThere()) {
    return {hung, [this, after = std::move(after)] { Leave(after); }};
  }
  Go go = std::exchange(go_, nullptr);
  return {hung, hung && waiting ? std::move(go) : nullptr};
}

}  // namespace corvane
