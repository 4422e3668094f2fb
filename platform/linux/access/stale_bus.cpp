#include "platform/linux/access/stale_bus.h"

#include <gio/gio.h>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

constexpr const char* kAddress = "AT_SPI_BUS_ADDRESS";

}  // namespace

void ForgetStaleBus() {
  const char* address = g_getenv(kAddress);
  if (address == nullptr || *address == '\0') return;
  const ObjectPtr<GIOStream> stream(
      g_dbus_address_get_stream_sync(address, nullptr, nullptr, nullptr));
  if (stream) return;
  g_message("The accessibility bus named in the environment cannot be reached.");
  g_unsetenv(kAddress);
}

}  // namespace corvane::desktop
