#pragma once

#include <gio/gio.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/automation.h"
#include "platform/linux/automation/bus_call.h"
#include "platform/linux/automation/caller_gate.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// Automation over D-Bus, under the names of bus_names.h. An object belongs to
/// the caller that made it and goes when that one leaves the bus; whoever knows
/// its path may use it.
class BusAutomation : public Automation {
 public:
  /// `connection` may be null: then nobody ever calls.
  explicit BusAutomation(GDBusConnection* connection);
  /// Sends what has been answered before it lets go of the bus.
  ~BusAutomation() override;

  void Publish(AutomationServer& server) override;
  void Refuse(const RunTimeError& error) override;
  void Withdraw() override;
  void TellKeyboardEcho(bool on) override;

 private:
  struct Object {
    std::string owner;
    std::shared_ptr<AutomationObject> held;  // a call may outlive its release
    guint registration = 0;
  };

  static void OnCall(GDBusConnection*, const gchar* caller, const gchar* path,
                     const gchar* interface, const gchar* method, GVariant* arguments,
                     GDBusMethodInvocation* invocation, gpointer self);

  void Expose(GBusNameOwnerFlags flags);
  guint Register(const std::string& path, const char* interface);
  void Answer(BusCall& call);
  /// Carries a call out and returns the path of what it made, if anything.
  std::optional<std::string> CarryOut(const BusCall& call);
  std::string CreateObject(const BusCall& call);
  void CallObject(const BusCall& call);
  void CallService(const BusCall& call);
  void CallOpen(const BusCall& call);
  AutomationServer& Server() const;
  void Release(const std::string& path);
  void CallerLeft(const std::string& caller);

  ObjectPtr<GDBusConnection> connection_;
  Owned<GDBusNodeInfo, g_dbus_node_info_unref> description_;
  std::unique_ptr<CallerGate> gate_;
  AutomationServer* server_ = nullptr;
  std::optional<RunTimeError> refusal_;
  guint name_ = 0;
  std::vector<guint> registrations_;
  std::map<std::string, Object> objects_;  // by path
  unsigned last_object_ = 0;
};

/// The session's bus; null, with a word in the log, where there is none.
ObjectPtr<GDBusConnection> SessionBus();

}  // namespace corvane::desktop
