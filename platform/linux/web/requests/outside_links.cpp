#include "platform/linux/web/requests/outside_links.h"

#include <gio/gio.h>

#include <memory>
#include <utility>

#include "base/safe_name.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/drawing.h"
#include "web/address/Address.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestShown = 200;

}  // namespace

bool OtherPrograms::CanOpen(const std::string& scheme) const {
  const ObjectPtr<GAppInfo> program(g_app_info_get_default_for_uri_scheme(scheme.c_str()));
  return program != nullptr;
}

void OtherPrograms::Open(const std::string& address, std::function<void(const std::string&)> done) {
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

OutsideLinks::OutsideLinks(QuestionDesk& desk, std::shared_ptr<OtherPrograms> programs,
                           std::function<void(const std::string&)> say)
    : desk_(desk), programs_(std::move(programs)), say_(std::move(say)) {}

void OutsideLinks::Offer(const std::string& address) {
  const std::string scheme = SchemeOf(address);
  if (!programs_->CanOpen(scheme)) {
    return say_("There is no program for addresses that begin with " + scheme + ":");
  }
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Open with another program?",
             "This address belongs to another program: " + Shorten(address, kLongestShown),
             {},
             {"&Open", "&Cancel"}},
            [address, scheme, programs = programs_, say = say_](const auto& reply) {
              if (!reply || reply->button != 0) return;
              programs->Open(address, [scheme, say](const std::string& error) {
                if (!error.empty()) say("No program could open the " + scheme + " address.");
              });
            });
}

}  // namespace corvane::desktop
