#include "platform/linux/automation/bus_automation.h"

#include <exception>
#include <utility>

#include "platform/linux/automation/bus_names.h"

extern "C" {
GResource* corvane_automation_get_resource(void);  // generated
}

namespace corvane::desktop {
namespace {

Owned<GDBusNodeInfo, g_dbus_node_info_unref> ReadDescription() {
  const BytesPtr bytes(g_resource_lookup_data(corvane_automation_get_resource(),
                                              "/org/corvane/automation/org.corvane.Corvane.xml",
                                              G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr));
  g_assert(bytes != nullptr);  // it is built in
  const std::string xml(static_cast<const char*>(g_bytes_get_data(bytes.get(), nullptr)),
                        g_bytes_get_size(bytes.get()));
  return Owned<GDBusNodeInfo, g_dbus_node_info_unref>(
      g_dbus_node_info_new_for_xml(xml.c_str(), nullptr));
}

}  // namespace

ObjectPtr<GDBusConnection> SessionBus() {
  GError* raw = nullptr;
  ObjectPtr<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &raw));
  const ErrorPtr error(raw);
  if (!bus) g_message("No session bus, so no other program can reach this one: %s", raw->message);
  return bus;
}

BusAutomation::BusAutomation(GDBusConnection* connection)
    : connection_(connection == nullptr ? nullptr : G_DBUS_CONNECTION(g_object_ref(connection))),
      description_(ReadDescription()) {
  // Losing the bus costs the user the other programs, not this one.
  if (connection_) g_dbus_connection_set_exit_on_close(connection_.get(), FALSE);
}

BusAutomation::~BusAutomation() {
  Withdraw();
  if (connection_) g_dbus_connection_flush_sync(connection_.get(), nullptr, nullptr);
}

void BusAutomation::Publish(AutomationServer& server) {
  Withdraw();
  server_ = &server;
  Expose(G_BUS_NAME_OWNER_FLAGS_REPLACE);
}

// A refused process stands back for one that a person starts.
void BusAutomation::Refuse(const RunTimeError& error) {
  Withdraw();
  refusal_ = error;
  Expose(G_BUS_NAME_OWNER_FLAGS_ALLOW_REPLACEMENT);
}

void BusAutomation::Expose(GBusNameOwnerFlags flags) {
  if (!connection_) return;
  gate_ = std::make_unique<CallerGate>(connection_.get());
  gate_->left = [this](const std::string& caller) { CallerLeft(caller); };
  registrations_ = {Register(kFactoryPath, kFactoryInterface),
                    Register(kFactoryPath, kOpenInterface),
                    Register(kServicePath, kServiceInterface)};
  name_ = g_bus_own_name_on_connection(connection_.get(), kBusName, flags, nullptr, nullptr,
                                       nullptr, nullptr);
}

guint BusAutomation::Register(const std::string& path, const char* interface) {
  static const GDBusInterfaceVTable calls = {&BusAutomation::OnCall, nullptr, nullptr, {}};
  return g_dbus_connection_register_object(
      connection_.get(), path.c_str(),
      g_dbus_node_info_lookup_interface(description_.get(), interface), &calls, this, nullptr,
      nullptr);
}

void BusAutomation::Withdraw() {
  server_ = nullptr;
  refusal_.reset();
  gate_.reset();
  if (name_ != 0) g_bus_unown_name(std::exchange(name_, 0));
  for (const guint registration : std::exchange(registrations_, {})) {
    g_dbus_connection_unregister_object(connection_.get(), registration);
  }
  while (!objects_.empty()) Release(objects_.begin()->first);
}

void BusAutomation::TellKeyboardEcho(bool on) {
  if (!connection_) return;
  g_dbus_connection_emit_signal(connection_.get(), nullptr, kServicePath, kServiceInterface,
                                "KeyboardEchoStatus", g_variant_new("(b)", on ? TRUE : FALSE),
                                nullptr);
}

void BusAutomation::OnCall(GDBusConnection*, const gchar* caller, const gchar*, const gchar*,
                           const gchar*, GVariant*, GDBusMethodInvocation* invocation,
                           gpointer data) {
  auto* self = static_cast<BusAutomation*>(data);
  const auto call = std::make_shared<BusCall>(invocation);
  self->gate_->Ask(caller, [self, call](bool admitted) {
    if (admitted) {
      self->Answer(*call);
    } else {
      call->Deny();
    }
  });
}

// The call may end the program's automation, and with it the gate and the object
// that is called; only the answer is given afterwards.
void BusAutomation::Answer(BusCall& call) {
  try {
    const auto made = CarryOut(call);
    if (made) {
      call.ReturnObject(*made);
    } else {
      call.Return();
    }
  } catch (const RunTimeError& error) {
    call.Fail(error.Number(), error.Description());
  } catch (const std::exception& error) {
    call.Fail(kErrAutomation, error.what());
  }
}

AutomationServer& BusAutomation::Server() const {
  if (refusal_) throw *refusal_;
  return Required(server_);
}

std::optional<std::string> BusAutomation::CarryOut(const BusCall& call) {
  const std::string interface = call.Interface();
  if (interface == kFactoryInterface) return CreateObject(call);
  if (interface == kObjectInterface) {
    CallObject(call);
  } else if (interface == kServiceInterface) {
    CallService(call);
  } else {
    CallOpen(call);
  }
  return std::nullopt;
}

std::string BusAutomation::CreateObject(const BusCall& call) {
  Object object;
  object.owner = call.Caller();
  object.held = Server().CreateObject(call.Text(0));
  const std::string path = kObjectPathStart + std::to_string(++last_object_);
  object.registration = Register(path, kObjectInterface);
  objects_[path] = std::move(object);
  return path;
}

void BusAutomation::CallObject(const BusCall& call) {
  const std::string method = call.Method();
  const auto at = objects_.find(call.Path());
  if (at == objects_.end()) RaiseObjectNotSet();
  const auto object = at->second.held;
  if (method == "StartBrowser") {
    if (call.Text(0) != kServicePath) {
      throw RunTimeError(kErrTypeMismatch, kObjectInterface, "Type mismatch");
    }
    object->StartBrowser();
  } else if (method == "KillBrowser") {
    object->KillBrowser();
  } else if (method == "Say") {
    object->Say(call.Text(0), call.Flag(1));
  } else {
    Release(call.Path());
  }
}

void BusAutomation::CallService(const BusCall& call) {
  const std::string method = call.Method();
  AutomationServer& server = Server();
  if (method == "SpeechInit") {
    server.SpeechInit(call.Caller());
  } else if (method == "SpeechTerminate") {
    server.SpeechTerminate(call.Caller());
  } else if (method == "KeyBoardEcho") {
    server.KeyBoardEcho(call.Flag(0));
  } else {
    server.Say(call.Text(0), call.Flag(1));
  }
}

void BusAutomation::CallOpen(const BusCall& call) {
  const std::string method = call.Method();
  if (method == "Activate") {
    Server().OpenWindow("");
  } else if (method == "Open") {
    for (const auto& address : call.Texts(0)) Server().OpenWindow(address);
  } else {
    throw RunTimeError(kErrNoSuchMethod, kOpenInterface, "There is no such action");
  }
}

void BusAutomation::Release(const std::string& path) {
  const auto at = objects_.find(path);
  if (at == objects_.end()) return;
  g_dbus_connection_unregister_object(connection_.get(), at->second.registration);
  const auto going = std::move(at->second.held);
  objects_.erase(at);
}

void BusAutomation::CallerLeft(const std::string& caller) {
  std::vector<std::string> left;
  for (const auto& [path, object] : objects_) {
    if (object.owner == caller) left.push_back(path);
  }
  for (const auto& path : left) Release(path);
  if (server_ != nullptr) server_->CallerLeft(caller);
}

}  // namespace corvane::desktop
