#pragma once

#include <gio/gio.h>

#include <atomic>
#include <string>

#include "platform/linux/glib/owner.h"

namespace corvane::fuzz {

/// A session bus inside this process: one program is connected to it, and calls
/// come from callers that do not exist.
class FalseBus {
 public:
  FalseBus();

  /// The connected program's connection.
  GDBusConnection* Program() const { return program_.get(); }
  /// Sends a call to the program; `arguments` may be null or floating. What is no
  /// possible call is not sent.
  void Call(const std::string& caller, const char* path, const char* interface, const char* method,
            GVariant* arguments);
  /// Tells the program that a caller has left the bus.
  void Leave(const std::string& caller);
  /// Runs the program until every call has been answered.
  void WaitForAnswers();

 private:
  static GDBusMessage* OnMessage(GDBusConnection* connection, GDBusMessage* message,
                                 gboolean incoming, gpointer self);
  static GVariant* Answer(const char* method);
  void Send(GDBusMessage* message);

  desktop::ObjectPtr<GDBusConnection> bus_;
  desktop::ObjectPtr<GDBusConnection> program_;
  int asked_ = 0;
  std::atomic<int> answered_ = 0;  // counted on the bus's thread
};

}  // namespace corvane::fuzz
