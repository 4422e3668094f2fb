#include "web/Preferences.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr double kLeastZoom = 0.3;
constexpr double kMostZoom = 3;

}  // namespace

void Preferences::Set(const EnginePreferences& preferences) {
  now_ = preferences;
  Changed.Raise();
}

int Preferences::Zoom(double zoom) {
  EnginePreferences preferences = now_;
  const int percent = static_cast<int>(std::lround(std::clamp(zoom, kLeastZoom, kMostZoom) * 100));
  preferences.zoom = percent / 100.0;
  Set(preferences);
  if (zoom_changed_) zoom_changed_(percent);
  return percent;
}

}  // namespace corvane
