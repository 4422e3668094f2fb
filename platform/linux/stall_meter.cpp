#include "platform/linux/stall_meter.h"

#include <glib/gstdio.h>

#include <fstream>

namespace corvane::desktop {
namespace {

constexpr guint kInterval = 1;  // milliseconds

}  // namespace

StallMeter::StallMeter() {
  const char* file = g_getenv("CORVANE_STALLS");
  if (file == nullptr || *file == '\0') return;
  file_ = file;
  last_ = g_get_monotonic_time();
  source_ = g_timeout_add_full(G_PRIORITY_HIGH, kInterval, &StallMeter::Tick, this, nullptr);
}

StallMeter::~StallMeter() {
  if (source_ != 0) g_source_remove(source_);
}

gboolean StallMeter::Tick(gpointer self) {
  auto& meter = *static_cast<StallMeter*>(self);
  const gint64 now = g_get_monotonic_time();
  const gint64 stall = now - meter.last_ - kInterval * 1000;
  meter.last_ = now;
  if (g_access(meter.file_.c_str(), F_OK) != 0) meter.longest_ = 0;
  if (stall > meter.longest_) {
    meter.longest_ = stall;
    std::ofstream(meter.file_, std::ios::app) << static_cast<double>(stall) / 1000 << '\n';
  }
  return G_SOURCE_CONTINUE;
}

}  // namespace corvane::desktop
