#include "platform/linux/web/drawing.h"

#include <utility>

namespace corvane::desktop {
namespace {

// The engine's own settings come too late: it looks for the device when the first
// context is made, and asks it for its name when the first page process is started.
// The toolkit looks for it where it is the first program on a display.
constexpr std::pair<const char*, const char*> kVariables[] = {
    {"GDK_GL", "disable"},
    {"WEBKIT_DISABLE_DMABUF_RENDERER", "1"},
    {"WEBKIT_WEB_RENDER_DEVICE_FILE", "/dev/null"},  // none: page processes find their own
};

}  // namespace

void DrawByProcessor() {
  for (const auto& [name, value] : kVariables) g_setenv(name, value, FALSE);
}

void ForgetDrawing(GAppLaunchContext* context) {
  for (const auto& [name, value] : kVariables) g_app_launch_context_unsetenv(context, name);
}

}  // namespace corvane::desktop
