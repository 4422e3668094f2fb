#include "platform/linux/web/requests/desktop_programs.h"

#include <gio/gio.h>

#include <memory>
#include <utility>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/drawing.h"

namespace corvane::desktop {

bool DesktopPrograms::CanOpen(const std::string& scheme) const {
  const ObjectPtr<GAppInfo> program(g_app_info_get_default_for_uri_scheme(scheme.c_str()));
  return program != nullptr;
}

void DesktopPrograms::Open(const std::string& address,
                           std::function<void(const std::string&)> done) {
  using Done = std::function<void(const std::string&)>;
  const ObjectPtr<GAppLaunchContext> context(g_app_launch_context_new());
  ForgetDrawing(context.get());
  g_app_info_launch_default_for_uri_async(
      address.c_str(), context.get(), nullptr,
      +[](GObject*, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Done> call(static_cast<Done*>(data));
        GError* raw = nullptr;
        g_app_info_launch_default_for_uri_finish(result, &raw);
        const ErrorPtr error(raw);
        (*call)(error ? Text(error->message) : std::string());
      },
      new Done(std::move(done)));
}

}  // namespace corvane::desktop
