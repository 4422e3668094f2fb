#include "tests/fuzz/false_bus.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <map>

namespace corvane::fuzz {
namespace {

using desktop::ObjectPtr;

constexpr const char* kProgram = ":1.1";

ObjectPtr<GIOStream> StreamOn(int descriptor) {
  GError* error = nullptr;
  const ObjectPtr<GSocket> socket(g_socket_new_from_fd(descriptor, &error));
  if (!socket) std::abort();
  return ObjectPtr<GIOStream>(
      G_IO_STREAM(g_socket_connection_factory_create_connection(socket.get())));
}

// Both ends wait for each other, so neither may hold up the loop.
ObjectPtr<GDBusConnection> Made(GAsyncResult* result) {
  GError* error = nullptr;
  ObjectPtr<GDBusConnection> connection(g_dbus_connection_new_finish(result, &error));
  if (!connection) {
    g_printerr("no bus: %s\n", error->message);
    std::abort();
  }
  return connection;
}

}  // namespace

FalseBus::FalseBus() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) std::abort();
  const ObjectPtr<GIOStream> near = StreamOn(ends[0]);
  const ObjectPtr<GIOStream> far = StreamOn(ends[1]);
  const desktop::GText guid(g_dbus_generate_guid());
  g_dbus_connection_new(
      far.get(), guid.get(),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_SERVER |
                                        G_DBUS_CONNECTION_FLAGS_DELAY_MESSAGE_PROCESSING),
      nullptr, nullptr,
      [](GObject*, GAsyncResult* result, gpointer self) {
        auto& bus = static_cast<FalseBus*>(self)->bus_;
        bus = Made(result);
        g_dbus_connection_add_filter(bus.get(), &FalseBus::OnMessage, self, nullptr);
        g_dbus_connection_start_message_processing(bus.get());
      },
      this);
  g_dbus_connection_new(
      near.get(), nullptr,
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr,
      [](GObject*, GAsyncResult* result, gpointer self) {
        static_cast<FalseBus*>(self)->program_ = Made(result);
      },
      this);
  while (!bus_ || !program_) g_main_context_iteration(nullptr, TRUE);
}

// What the program asks of the bus itself.
GVariant* FalseBus::Answer(const char* method) {
  const std::string name = method;
  if (name == "Hello") return g_variant_new("(s)", kProgram);
  if (name == "GetNameOwner") return g_variant_new("(s)", ":1.2");
  if (name == "GetConnectionUnixUser") return g_variant_new("(u)", getuid());
  if (name == "RequestName" || name == "ReleaseName") return g_variant_new("(u)", 1);
  return g_variant_new("()");
}

GDBusMessage* FalseBus::OnMessage(GDBusConnection* connection, GDBusMessage* message,
                                  gboolean incoming, gpointer self) {
  if (incoming == FALSE) return message;
  const auto type = g_dbus_message_get_message_type(message);
  if (type == G_DBUS_MESSAGE_TYPE_METHOD_CALL) {
    const ObjectPtr<GDBusMessage> reply(g_dbus_message_new_method_reply(message));
    g_dbus_message_set_sender(reply.get(), "org.freedesktop.DBus");
    g_dbus_message_set_body(reply.get(), Answer(g_dbus_message_get_member(message)));
    g_dbus_connection_send_message(connection, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                   nullptr);
  } else if (type != G_DBUS_MESSAGE_TYPE_SIGNAL) {
    ++static_cast<FalseBus*>(self)->answered_;
    g_main_context_wakeup(nullptr);
  }
  g_object_unref(message);
  return nullptr;
}

void FalseBus::Send(GDBusMessage* message) {
  g_dbus_connection_send_message(bus_.get(), message, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                 nullptr);
}

void FalseBus::Call(const std::string& caller, const char* path, const char* interface,
                    const char* method, GVariant* arguments) {
  const ObjectPtr<GDBusMessage> message(
      g_dbus_message_new_method_call(kProgram, path, interface, method));
  g_dbus_message_set_sender(message.get(), caller.c_str());
  if (arguments != nullptr) g_dbus_message_set_body(message.get(), arguments);
  ++asked_;
  Send(message.get());
}

void FalseBus::Leave(const std::string& caller) {
  const ObjectPtr<GDBusMessage> message(g_dbus_message_new_signal(
      "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameOwnerChanged"));
  g_dbus_message_set_sender(message.get(), "org.freedesktop.DBus");
  g_dbus_message_set_body(message.get(),
                          g_variant_new("(sss)", caller.c_str(), caller.c_str(), ""));
  Send(message.get());
}

void FalseBus::WaitForAnswers() {
  while (answered_ < asked_) g_main_context_iteration(nullptr, TRUE);
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

}  // namespace corvane::fuzz
