#pragma once

#include <gio/gio.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// Lets calls of the same user pass and nobody else's, and tells when a caller
/// has left the bus. The bus is asked once for each caller; calls that come
/// meanwhile wait, in their order.
class CallerGate {
 public:
  using Ruling = std::function<void(bool admitted)>;

  explicit CallerGate(GDBusConnection* connection);
  ~CallerGate();
  CallerGate(const CallerGate&) = delete;
  CallerGate& operator=(const CallerGate&) = delete;

  /// Calls `ruling`, at once for a caller that is known. Never after the gate is gone.
  void Ask(const std::string& caller, Ruling ruling);
  /// Called when a caller that had been admitted has left the bus.
  std::function<void(const std::string& caller)> left;

 private:
  enum class Verdict { Open, Admitted, Refused };
  struct Caller {
    Verdict verdict = Verdict::Open;
    guint watch = 0;
    std::vector<Ruling> waiting;
  };
  struct Question;

  static void OnUser(GObject* connection, GAsyncResult* result, gpointer question);
  static void OnVanished(GDBusConnection*, const gchar* name, gpointer self);
  void Decide(const std::string& caller, bool admitted);

  GDBusConnection* connection_;
  ObjectPtr<GCancellable> cancellable_;
  std::map<std::string, Caller> callers_;
};

}  // namespace corvane::desktop
