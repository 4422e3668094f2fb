#pragma once

#include <chrono>
#include <functional>
#include <utility>

namespace corvane {

/// How often something may happen: so many times in a span of time, and then not
/// again until the span is over.
class Allowance {
 public:
  /// Seconds since some moment.
  using Clock = std::function<double()>;
  static double SteadyClock() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }

  Allowance(int most, double seconds, Clock now = &SteadyClock)
      : most_(most), span_(seconds), now_(std::move(now)) {}

  /// Whether it may happen now; counts it when it may.
  bool Take() {
    const double now = now_();
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
  double span_;
  Clock now_;
  int taken_ = 0;
  double first_ = 0;
};

}  // namespace corvane
