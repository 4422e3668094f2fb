#pragma once

#include <glib.h>

#include <string>

namespace corvane::desktop {

/// Measures how long the user-interface thread was ever busy without taking
/// events, when the environment variable CORVANE_STALLS names a file. Each time
/// a longer stall is found than any since the file was last removed, a line with
/// the milliseconds is appended. Costs nothing otherwise.
class StallMeter {
 public:
  StallMeter();
  ~StallMeter();
  StallMeter(const StallMeter&) = delete;
  StallMeter& operator=(const StallMeter&) = delete;

 private:
  static gboolean Tick(gpointer self);

  std::string file_;
  gint64 last_ = 0;     // microseconds, monotonic
  gint64 longest_ = 0;  // microseconds
  guint source_ = 0;
};

}  // namespace corvane::desktop
