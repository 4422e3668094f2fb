#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/later.h"

namespace corvane::fakes {

/// Time that passes when the test says so.
class FakeTime {
 public:
  Later AsLater() {
    return [this](double seconds, std::function<void()> action) {
      auto due = std::make_shared<Due>(Due{now_ + seconds, ++made_, std::move(action)});
      waiting_.push_back(due);
      return due;
    };
  }

  /// Lets so much of it pass: what is due runs in its order.
  void Pass(double seconds) {
    const double end = now_ + seconds;
    while (const auto next = Next(end)) {
      now_ = std::max(now_, next->at);
      std::erase_if(waiting_, [&](const auto& each) { return each.lock() == next; });
      const auto action = std::move(next->action);
      action();
    }
    now_ = end;
  }
  double Now() const { return now_; }

 private:
  struct Due {
    double at;
    int number;
    std::function<void()> action;
  };

  std::shared_ptr<Due> Next(double end) const {
    std::shared_ptr<Due> next;
    for (const auto& each : waiting_) {
      const auto due = each.lock();
      if (!due || due->at > end) continue;
      if (!next || std::pair(due->at, due->number) < std::pair(next->at, next->number)) next = due;
    }
    return next;
  }

  double now_ = 0;
  int made_ = 0;
  std::vector<std::weak_ptr<Due>> waiting_;
};

}  // namespace corvane::fakes
