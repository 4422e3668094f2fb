#include "platform/linux/automation/bus_call.h"

#include "base/error.h"
#include "platform/linux/automation/bus_names.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

BusCall::~BusCall() {
  if (invocation_ != nullptr) Fail(kErrObjectNotSet, "The program is about to end");
}

std::string BusCall::Caller() const { return g_dbus_method_invocation_get_sender(invocation_); }

std::string BusCall::Path() const { return g_dbus_method_invocation_get_object_path(invocation_); }

std::string BusCall::Interface() const {
  return g_dbus_method_invocation_get_interface_name(invocation_);
}

std::string BusCall::Method() const {
  return g_dbus_method_invocation_get_method_name(invocation_);
}

GVariant* BusCall::Arguments() const {
  return g_dbus_method_invocation_get_parameters(invocation_);
}

std::string BusCall::Text(gsize index) const {
  const VariantPtr argument(g_variant_get_child_value(Arguments(), index));
  return g_variant_get_string(argument.get(), nullptr);
}

bool BusCall::Flag(gsize index) const {
  const VariantPtr argument(g_variant_get_child_value(Arguments(), index));
  return g_variant_get_boolean(argument.get()) != FALSE;
}

std::vector<std::string> BusCall::Texts(gsize index) const {
  const VariantPtr argument(g_variant_get_child_value(Arguments(), index));
  std::vector<std::string> texts;
  for (gsize i = 0; i < g_variant_n_children(argument.get()); ++i) {
    const VariantPtr text(g_variant_get_child_value(argument.get(), i));
    texts.emplace_back(g_variant_get_string(text.get(), nullptr));
  }
  return texts;
}

void BusCall::Return() { g_dbus_method_invocation_return_value(Taken(), nullptr); }

void BusCall::ReturnObject(const std::string& path) {
  g_dbus_method_invocation_return_value(Taken(), g_variant_new("(o)", path.c_str()));
}

void BusCall::Fail(int number, const std::string& description) {
  const std::string message = std::to_string(number) + ": " + description;
  g_dbus_method_invocation_return_dbus_error(Taken(), kErrorName, message.c_str());
}

void BusCall::Deny() {
  g_dbus_method_invocation_return_dbus_error(Taken(), "org.freedesktop.DBus.Error.AccessDenied",
                                             "Corvane answers only programs of its own user");
}

}  // namespace corvane::desktop
