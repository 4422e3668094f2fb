#pragma once

#include <gio/gio.h>

#include <memory>

namespace corvane::desktop {

struct GlibUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
  void operator()(GVariant* value) const { g_variant_unref(value); }
  void operator()(GDBusNodeInfo* info) const { g_dbus_node_info_unref(info); }
  void operator()(GError* error) const { g_error_free(error); }
  void operator()(gchar* text) const { g_free(text); }
};

/// Owns one reference to what GLib has given.
template <class T>
using GlibPtr = std::unique_ptr<T, GlibUnref>;

}  // namespace corvane::desktop
