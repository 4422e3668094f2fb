#include "platform/linux/web/web_resource.h"

#include <gio/gio.h>

#include <stdexcept>

#include "platform/linux/glib/owner.h"

extern "C" {
GResource* corvane_page_get_resource(void);
GResource* corvane_pages_get_resource(void);
}

namespace corvane::desktop {

std::string WebResource(const std::string& name) {
  const std::string path = "/org/corvane/web/" + name;
  for (GResource* resource : {corvane_page_get_resource(), corvane_pages_get_resource()}) {
    const BytesPtr bytes(
        g_resource_lookup_data(resource, path.c_str(), G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr));
    if (!bytes) continue;
    gsize size = 0;
    const auto* data = static_cast<const char*>(g_bytes_get_data(bytes.get(), &size));
    return {data, size};
  }
  throw std::logic_error("no built-in file " + name);
}

}  // namespace corvane::desktop
