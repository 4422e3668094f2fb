#include "platform/linux/web/watchdog.h"

#include <utility>

namespace corvane::desktop {
namespace {

// A long list of 50,000 entries was seen to keep the engine busy for 15 seconds
// while it loads, and then to be a page like any other. Stop is there for those
// who do not want to wait.
constexpr double kMoreWhileLoading = 4;

}  // namespace

Watchdog::Watchdog(Limits limits, std::function<void(Answer)> ping,
                   std::function<bool()> keep_watching, std::function<void()> warn,
                   std::function<void()> end)
    : limits_(limits),
      ping_(std::move(ping)),
      keep_watching_(std::move(keep_watching)),
      warn_(std::move(warn)),
      end_(std::move(end)) {}

void Watchdog::Watch() {
  if (current_) return;
  pause_.Cancel();
  current_ = std::make_shared<int>();
  warn_delay_.Start(limits_.warn, [this] {
    warned_ = true;
    warn_();
  });
  EndIn(keep_watching_() ? kMoreWhileLoading * limits_.end : limits_.end);
  ping_([this, ping = std::weak_ptr(current_)] {
    if (!ping.expired()) Answered();
  });
}

void Watchdog::EndIn(double seconds) {
  end_delay_.Start(seconds, [this] {
    Reset();
    end_();
  });
}

void Watchdog::WatchSoon() {
  soon_.Start(0, [this] { Given(); });
}

void Watchdog::Given() {
  soon_.Cancel();
  if (current_) {
    again_ = true;
  } else {
    Watch();
  }
}

void Watchdog::Hurry() {
  if (soon_.Running()) Given();
  if (!current_) return;
  hurried_ = true;
  warn_delay_.Cancel();
  EndIn(limits_.warn);
}

void Watchdog::Reset() {
  current_.reset();
  again_ = false;
  hurried_ = false;
  warned_ = false;
  warn_delay_.Cancel();
  end_delay_.Cancel();
  pause_.Cancel();
  soon_.Cancel();
}

void Watchdog::Answered() {
  const bool again = again_ || soon_.Running();
  const bool hurried = hurried_;
  Reset();
  if (again) {
    Watch();
    if (hurried) Hurry();
  } else if (keep_watching_()) {
    pause_.Start(limits_.pause, [this] { Watch(); });
  }
}

}  // namespace corvane::desktop
