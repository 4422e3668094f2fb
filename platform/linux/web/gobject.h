#pragma once

#include <glib-object.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace corvane::desktop {

struct ObjectUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
/// Owns one reference to a GObject.
template <class T>
using ObjectPtr = std::unique_ptr<T, ObjectUnref>;

struct GFree {
  void operator()(gpointer memory) const { g_free(memory); }
};
/// Owns memory that GLib allocated.
using GText = std::unique_ptr<char, GFree>;

struct ErrorFree {
  void operator()(GError* error) const { g_error_free(error); }
};
using ErrorPtr = std::unique_ptr<GError, ErrorFree>;

/// The text, or an empty one for a null pointer.
inline std::string Text(const char* text) { return text == nullptr ? std::string() : text; }

/// Runs something once, later, on the main loop. Starting it again or letting go
/// of it forgets what was to run.
class Delay {
 public:
  Delay() = default;
  Delay(const Delay&) = delete;
  Delay& operator=(const Delay&) = delete;
  ~Delay() { Cancel(); }

  void Start(double seconds, std::function<void()> run) {
    Cancel();
    run_ = std::move(run);
    source_ = g_timeout_add(static_cast<guint>(seconds * 1000), &Delay::Fire, this);
  }
  void Cancel() {
    if (source_ != 0) g_source_remove(std::exchange(source_, 0));
  }
  bool Running() const { return source_ != 0; }

 private:
  static gboolean Fire(gpointer self) {
    auto* delay = static_cast<Delay*>(self);
    delay->source_ = 0;
    const auto run = std::move(delay->run_);  // may start again or destroy the delay
    run();
    return G_SOURCE_REMOVE;
  }

  std::function<void()> run_;
  guint source_ = 0;
};

}  // namespace corvane::desktop
