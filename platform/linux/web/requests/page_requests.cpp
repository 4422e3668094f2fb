#include "platform/linux/web/requests/page_requests.h"

#include <utility>

#include "platform/linux/web/requests/file_upload.h"
#include "platform/linux/web/web_engine.h"
#include "web/Problem.h"
#include "web/address/Address.h"

namespace corvane::desktop {

PageRequests::PageRequests(WebEngine& engine, WebKitWebView* view, Host host)
    : host_(std::move(host)),
      notices_([this](const std::string& sentence) {
        host_.status(sentence);
        host_.say(sentence);
      }),
      desk_(engine.Options().questions,
            [this] {
              notices_.Tell("This page asks too many questions. They are refused for a while.");
            }),
      dialogs_(
          engine.Options().dialogs, desk_,
          {[this](bool open) { host_.hold(open); },
           [this](const std::string& text) { host_.status(text); },
           [this](const std::string& text) { notices_.Tell(text); }, [this] { host_.stay(); }}),
      permissions_(engine.Permissions(), desk_, notices_),
      login_(desk_, notices_),
      outside_(desk_, engine.Options().programs,
               [self = std::weak_ptr(self_)](const std::string& text) {
                 if (const auto alive = self.lock()) (*alive)->host_.say(text);
               }),
      view_(view) {
  desk_.AskFor(GTK_WIDGET(view_));
  const auto connect = [this](const char* signal, GCallback handler) {
    g_signal_connect(view_, signal, handler, this);
  };
  connect("script-dialog", G_CALLBACK(+[](WebKitWebView* page, WebKitScriptDialog* dialog,
                                          gpointer data) -> gboolean {
            auto& self = *static_cast<PageRequests*>(data);
            self.dialogs_.Show(GTK_WIDGET(page), dialog, SiteOf(self.host_.address()));
            return TRUE;
          }));
  connect("permission-request", G_CALLBACK(+[](WebKitWebView*, WebKitPermissionRequest* request,
                                               gpointer data) -> gboolean {
            auto& self = *static_cast<PageRequests*>(data);
            self.permissions_.Decide(request, self.host_.address());
            return TRUE;
          }));
  connect("run-file-chooser", G_CALLBACK(+[](WebKitWebView*, WebKitFileChooserRequest* request,
                                             gpointer self) -> gboolean {
            static_cast<PageRequests*>(self)->host_.files(UploadRequest(request));
            return TRUE;
          }));
  connect("authenticate", G_CALLBACK(+[](WebKitWebView*, WebKitAuthenticationRequest* request,
                                         gpointer data) -> gboolean {
            static_cast<PageRequests*>(data)->login_.Ask(request);
            return TRUE;
          }));
  connect("print",
          G_CALLBACK(+[](WebKitWebView*, WebKitPrintOperation*, gpointer self) -> gboolean {
            static_cast<PageRequests*>(self)->AskToPrint();
            return TRUE;
          }));
  connect(
      "enter-fullscreen", G_CALLBACK(+[](WebKitWebView*, gpointer self) -> gboolean {
        static_cast<PageRequests*>(self)->notices_.Tell("Full screen. Press Escape to leave it.");
        return FALSE;
      }));
  connect("leave-fullscreen", G_CALLBACK(+[](WebKitWebView*, gpointer self) -> gboolean {
            static_cast<PageRequests*>(self)->notices_.Tell("Full screen is over.");
            return FALSE;
          }));
}

PageRequests::~PageRequests() {
  g_signal_handlers_disconnect_by_data(view_, this);
  desk_.Reset();  // who asked is still there to take the answer
}

void PageRequests::PageChanged() {
  desk_.Reset();
  dialogs_.Reset();
  permissions_.Reset();
}

void PageRequests::UserAskedForPage() {
  permissions_.Forget();
  login_.Reset();
  UserActed();
}

void PageRequests::AskToPrint() {
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Print",
             "The page " + SiteOf(host_.address()) + " wants to be printed.",
             {},
             {"&Print", "&Cancel"}},
            [this](const auto& reply) {
              if (reply && reply->button == 0) host_.print();
            });
}

bool PageRequests::MayOpenWindow(bool user_gesture) {
  if (user_gesture && std::exchange(may_open_window_, false)) return true;
  notices_.Tell("A pop-up window was blocked.");
  return false;
}

void PageRequests::OpenOutside(const std::string& address, bool user_gesture) {
  if (user_gesture) return outside_.Offer(address);
  notices_.Tell("The page wanted to open another program. This was refused.");
}

}  // namespace corvane::desktop
