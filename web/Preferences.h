#pragma once

#include <functional>
#include <utility>

#include "base/event.h"
#include "web/EngineChoices.h"

namespace corvane {

/// What the user has set for all pages, as it is now.
class Preferences {
 public:
  /// `zoom_changed`: the user has changed the zoom by a command, in percent; to store it.
  explicit Preferences(std::function<void(int percent)> zoom_changed = nullptr)
      : zoom_changed_(std::move(zoom_changed)) {}

  const EnginePreferences& Now() const { return now_; }
  void Set(const EnginePreferences& preferences);
  Event<> Changed;
  /// Shows all pages larger by that many steps of 10 percent (smaller when negative),
  /// or in their own size; returns the size that is kept from now on, in percent.
  int ZoomBy(int steps) { return Zoom(now_.zoom + steps / 10.0); }
  int ZoomReset() { return Zoom(1); }

 private:
  int Zoom(double zoom);

  EnginePreferences now_;
  std::function<void(int)> zoom_changed_;
};

}  // namespace corvane
