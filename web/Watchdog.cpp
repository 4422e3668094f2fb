#include "web/Watchdog.h"

#include <utility>

namespace corvane {
namespace {

// A long list of 50,000 entries was seen to keep the engine busy for 15 seconds
// while it loads, and then to be a page like any other. Stop is there for those
// who do not want to wait.
constexpr double kMoreWhileLoading = 4;

}  // namespace

Watchdog::Watchdog(Limits limits, Later later, std::function<void(Answer)> ping,
                   std::function<bool()> keep_watching, std::function<void()> warn,
                   std::function<void()> end)
    : limits_(limits),
      later_(std::move(later)),
      ping_(std::move(ping)),
      keep_watching_(std::move(keep_watching)),
      warn_(std::move(warn)),
      end_(std::move(end)) {}

void Watchdog::Watch() {
  if (current_) return;
  pause_.reset();
  current_.emplace();
  to_warn_ = later_(limits_.warn, [this] {
    warned_ = true;
    warn_();
  });
  EndIn(keep_watching_() ? kMoreWhileLoading * limits_.end : limits_.end);
  ping_([this, mine = current_->Look()] {
    if (mine) Answered();
  });
}

void Watchdog::EndIn(double seconds) {
  to_end_ = later_(seconds, [this] {
    Reset();
    end_();
  });
}

void Watchdog::WatchSoon() {
  soon_ = later_(0, [this] { Given(); });
}

void Watchdog::Given() {
  soon_.reset();
  if (current_) {
    again_ = true;
  } else {
    Watch();
  }
}

void Watchdog::Hurry() {
  if (soon_) Given();
  if (!current_) return;
  hurried_ = true;
  to_warn_.reset();
  EndIn(limits_.warn);
}

void Watchdog::Reset() {
  current_.reset();
  again_ = false;
  hurried_ = false;
  warned_ = false;
  to_warn_.reset();
  to_end_.reset();
  pause_.reset();
  soon_.reset();
}

void Watchdog::Answered() {
  const bool again = again_ || soon_;
  const bool hurried = hurried_;
  Reset();
  if (again) {
    Watch();
    if (hurried) Hurry();
  } else if (keep_watching_()) {
    pause_ = later_(limits_.pause, [this] { Watch(); });
  }
}

}  // namespace corvane
