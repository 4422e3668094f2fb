#pragma once

#include <glib.h>

#include <functional>
#include <utility>

namespace corvane::desktop {

/// How often something may happen: so many times in a span of time, and then not
/// again until the span is over.
class Allowance {
 public:
  using Clock = std::function<gint64()>;  ///< microseconds

  Allowance(int most, int seconds, Clock now = &g_get_monotonic_time)
      : most_(most), span_(seconds * G_USEC_PER_SEC), now_(std::move(now)) {}

  /// Whether it may happen now; counts it when it may.
  bool Take() {
    const gint64 now = now_();
    if (taken_ == 0 || now - first_ >= span_) {
      taken_ = 0;
      first_ = now;
    }
    if (taken_ >= most_) return false;
    ++taken_;
    return true;
  }
  void Reset() { taken_ = 0; }

 private:
  int most_;
  gint64 span_;
  Clock now_;
  int taken_ = 0;
  gint64 first_ = 0;
};

}  // namespace corvane::desktop
