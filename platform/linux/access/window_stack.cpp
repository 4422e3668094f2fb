#include "platform/linux/access/window_stack.h"

#include <cstring>
#include <string>

#include "base/text.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

bool Contains(const GdkRectangle& rect, ScreenPoint point) {
  return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y &&
         point.y < rect.y + rect.height;
}

// A property of a window that may be another program's: its bytes.
std::string PropertyOf(GdkWindow* window, const char* name, const char* type, int format) {
  GdkAtom actual_type = GDK_NONE;
  gint actual_format = 0;
  gint length = 0;
  guchar* data = nullptr;
  constexpr gulong kMost = 4096;  // bytes
  if (gdk_property_get(window, gdk_atom_intern(name, FALSE), gdk_atom_intern(type, FALSE), 0, kMost,
                       FALSE, &actual_type, &actual_format, &length, &data) == FALSE ||
      data == nullptr) {
    return {};
  }
  const GText bytes(reinterpret_cast<char*>(data));
  return actual_format == format ? std::string(bytes.get(), length) : std::string();
}

std::uint32_t ProcessOf(GdkWindow* window) {
  // Values of 32 bits come as longs.
  const std::string bytes = PropertyOf(window, "_NET_WM_PID", "CARDINAL", 32);
  gulong process = 0;
  if (bytes.size() < sizeof process) return 0;
  std::memcpy(&process, bytes.data(), sizeof process);
  return static_cast<std::uint32_t>(process);
}

TopWindow Told(GdkWindow* window, const GdkRectangle& frame) {
  TopWindow top;
  gpointer user = nullptr;
  gdk_window_get_user_data(window, &user);
  if (user != nullptr && GTK_IS_WINDOW(user)) {
    top.own = GTK_WIDGET(user);
    return top;
  }
  top.other = {ProcessOf(window),
               text::valid(PropertyOf(window, "_NET_WM_NAME", "UTF8_STRING", 8)),
               {frame.x, frame.y, frame.width, frame.height}};
  return top;
}

}  // namespace

// Other programs' windows may go while they are looked at: the display's errors
// about that are nobody's.
std::optional<TopWindow> TopWindowAt(ScreenPoint point) {
  std::optional<TopWindow> top;
  G_GNUC_BEGIN_IGNORE_DEPRECATIONS  // nothing has come in the place of these
  gdk_error_trap_push();
  GList* stack = gdk_screen_get_window_stack(gdk_screen_get_default());
  for (GList* each = g_list_last(stack); each != nullptr && !top; each = each->prev) {
    auto* window = GDK_WINDOW(each->data);
    if (gdk_window_is_visible(window) == FALSE) continue;
    GdkRectangle frame;
    gdk_window_get_frame_extents(window, &frame);
    if (Contains(frame, point)) top = Told(window, frame);
  }
  g_list_free_full(stack, g_object_unref);
  gdk_error_trap_pop_ignored();
  G_GNUC_END_IGNORE_DEPRECATIONS
  return top;
}

}  // namespace corvane::desktop
