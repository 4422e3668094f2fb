#include "platform/linux/automation/caller_gate.h"

#include <unistd.h>

#include <utility>

namespace corvane::desktop {

struct CallerGate::Question {
  CallerGate* gate;
  std::string caller;
};

CallerGate::CallerGate(GDBusConnection* connection)
    : connection_(connection), cancellable_(g_cancellable_new()) {}

CallerGate::~CallerGate() {
  g_cancellable_cancel(cancellable_.get());
  for (auto& [name, caller] : callers_) {
    if (caller.watch != 0) g_bus_unwatch_name(caller.watch);
  }
}

void CallerGate::Ask(const std::string& name, Ruling ruling) {
  const auto [at, fresh] = callers_.try_emplace(name);
  Caller& caller = at->second;
  if (caller.verdict != Verdict::Open) return ruling(caller.verdict == Verdict::Admitted);
  caller.waiting.push_back(std::move(ruling));
  if (!fresh) return;
  g_dbus_connection_call(connection_, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                         "org.freedesktop.DBus", "GetConnectionUnixUser",
                         g_variant_new("(s)", name.c_str()), G_VARIANT_TYPE("(u)"),
                         G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, cancellable_.get(),
                         &CallerGate::OnUser, new Question{this, name});
}

void CallerGate::OnUser(GObject* connection, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<Question> question(static_cast<Question*>(data));
  GError* raw = nullptr;
  const VariantPtr reply(
      g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &raw));
  const ErrorPtr error(raw);
  if (g_error_matches(raw, G_IO_ERROR, G_IO_ERROR_CANCELLED)) return;  // the gate is gone
  guint32 user = 0;
  if (reply) g_variant_get(reply.get(), "(u)", &user);
  question->gate->Decide(question->caller, reply && user == getuid());
}

// A ruling may take the gate away, so nothing of it is touched afterwards.
void CallerGate::Decide(const std::string& name, bool admitted) {
  Caller& caller = callers_[name];
  caller.verdict = admitted ? Verdict::Admitted : Verdict::Refused;
  const auto waiting = std::exchange(caller.waiting, {});
  caller.watch =
      g_bus_watch_name_on_connection(connection_, name.c_str(), G_BUS_NAME_WATCHER_FLAGS_NONE,
                                     nullptr, &CallerGate::OnVanished, this, nullptr);
  for (const auto& ruling : waiting) ruling(admitted);
}

void CallerGate::OnVanished(GDBusConnection*, const gchar* name, gpointer self) {
  auto* gate = static_cast<CallerGate*>(self);
  const auto at = gate->callers_.find(name);
  if (at == gate->callers_.end()) return;
  const std::string gone = name;
  if (at->second.watch != 0) g_bus_unwatch_name(at->second.watch);
  gate->callers_.erase(at);
  if (gate->left) gate->left(gone);
}

}  // namespace corvane::desktop
