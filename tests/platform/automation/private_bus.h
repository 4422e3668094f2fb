#pragma once

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop::tests {

/// A bus daemon of the test's own.
class PrivateBus {
 public:
  PrivateBus() : bus_(g_test_dbus_new(G_TEST_DBUS_NONE)) { g_test_dbus_up(bus_.get()); }
  ~PrivateBus() { g_test_dbus_stop(bus_.get()); }
  std::string Address() const { return g_test_dbus_get_bus_address(bus_.get()); }

 private:
  ObjectPtr<GTestDBus> bus_;
};

/// A connection of its own, as another program has it.
inline ObjectPtr<GDBusConnection> Connect(const std::string& address) {
  GError* raw = nullptr;
  ObjectPtr<GDBusConnection> connection(g_dbus_connection_new_for_address_sync(
      address.c_str(),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, &raw));
  const ErrorPtr error(raw);
  EXPECT_TRUE(connection) << (raw != nullptr ? raw->message : "");
  if (connection) g_dbus_connection_set_exit_on_close(connection.get(), FALSE);
  return connection;
}

/// Lets the main loop run until `done`; each test has its own time limit.
inline void RunUntil(const std::function<bool()>& done) {
  while (!done()) g_main_context_iteration(nullptr, TRUE);
}

/// Asks again until the answer is yes; asking lets the main loop run.
inline void AskUntil(const std::function<bool()>& asked) {
  while (!asked()) {
  }
}

}  // namespace corvane::desktop::tests
