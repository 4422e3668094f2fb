#include "platform/linux/automation/hand_over.h"

#include <filesystem>
#include <system_error>

#include "platform/linux/automation/bus_automation.h"
#include "platform/linux/automation/bus_names.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr int kPatience = 5000;  // milliseconds

}  // namespace

std::string GivenAddress(const std::string& argument) {
  std::error_code error;
  if (!std::filesystem::exists(argument, error)) return argument;
  const auto path = std::filesystem::absolute(argument, error);
  return error ? argument : path.lexically_normal().string();
}

bool HandOver(const std::string& address) {
  const auto bus = SessionBus();
  if (!bus) return false;
  GVariantBuilder addresses;
  g_variant_builder_init(&addresses, G_VARIANT_TYPE("as"));
  const GText valid(g_utf8_make_valid(address.c_str(), -1));
  g_variant_builder_add(&addresses, "s", valid.get());
  const VariantPtr taken(
      g_dbus_connection_call_sync(bus.get(), kBusName, kFactoryPath, kOpenInterface, "Open",
                                  g_variant_new("(asa{sv})", &addresses, nullptr), nullptr,
                                  G_DBUS_CALL_FLAGS_NO_AUTO_START, kPatience, nullptr, nullptr));
  return taken != nullptr;
}

}  // namespace corvane::desktop
