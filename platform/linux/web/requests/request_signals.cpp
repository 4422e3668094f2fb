#include "platform/linux/web/requests/request_signals.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/requests/file_upload.h"
#include "platform/linux/web/requests/permission_wish.h"

namespace corvane::desktop {
namespace {

PageRequests& RequestsOf(gpointer data) { return *static_cast<PageRequests*>(data); }

ScriptDialog::Kind KindOf(WebKitScriptDialog* dialog) {
  switch (webkit_script_dialog_get_dialog_type(dialog)) {
    case WEBKIT_SCRIPT_DIALOG_CONFIRM:
      return ScriptDialog::Kind::Confirm;
    case WEBKIT_SCRIPT_DIALOG_PROMPT:
      return ScriptDialog::Kind::Prompt;
    case WEBKIT_SCRIPT_DIALOG_BEFORE_UNLOAD_CONFIRM:
      return ScriptDialog::Kind::Leave;
    case WEBKIT_SCRIPT_DIALOG_ALERT:
      break;
  }
  return ScriptDialog::Kind::Alert;
}

std::string PresetOf(WebKitScriptDialog* dialog) {
  return KindOf(dialog) == ScriptDialog::Kind::Prompt
             ? Text(webkit_script_dialog_prompt_get_default_text(dialog))
             : "";
}

/// The last reference closes it. Closing it by name while the engine still reports it
/// makes the engine use a null pointer.
class EngineDialog : public ScriptDialog {
 public:
  explicit EngineDialog(WebKitScriptDialog* dialog)
      : ScriptDialog(KindOf(dialog), Text(webkit_script_dialog_get_message(dialog)),
                     PresetOf(dialog)),
        dialog_(webkit_script_dialog_ref(dialog)) {}

  void Confirm(bool yes) override {
    webkit_script_dialog_confirm_set_confirmed(dialog_.get(), yes);
  }
  void Enter(const std::string& text) override {
    webkit_script_dialog_prompt_set_text(dialog_.get(), text.c_str());
  }

 private:
  const Owned<WebKitScriptDialog, webkit_script_dialog_unref> dialog_;
};

gboolean OnDialog(WebKitWebView*, WebKitScriptDialog* dialog, gpointer data) {
  RequestsOf(data).Show(std::make_unique<EngineDialog>(dialog));
  return TRUE;
}

gboolean OnPermission(WebKitWebView*, WebKitPermissionRequest* request, gpointer data) {
  const std::shared_ptr<WebKitPermissionRequest> held = Held(request);
  PageRequests& requests = RequestsOf(data);
  requests.Decide(WishOf(request, requests.Address()), [held](bool allowed) {
    allowed ? webkit_permission_request_allow(held.get())
            : webkit_permission_request_deny(held.get());
  });
  return TRUE;
}

// Passwords are kept for the session at most. Without one the page comes that the
// server shows to strangers.
void Authenticate(WebKitAuthenticationRequest* request,
                  const std::optional<Credentials>& credentials) {
  const Owned<WebKitCredential, webkit_credential_free> credential(
      credentials ? webkit_credential_new(credentials->user.c_str(), credentials->password.c_str(),
                                          WEBKIT_CREDENTIAL_PERSISTENCE_FOR_SESSION)
                  : nullptr);
  webkit_authentication_request_authenticate(request, credential.get());
}

gboolean OnSignIn(WebKitWebView*, WebKitAuthenticationRequest* request, gpointer data) {
  switch (webkit_authentication_request_get_scheme(request)) {
    case WEBKIT_AUTHENTICATION_SCHEME_CLIENT_CERTIFICATE_REQUESTED:
    case WEBKIT_AUTHENTICATION_SCHEME_CLIENT_CERTIFICATE_PIN_REQUESTED:
    case WEBKIT_AUTHENTICATION_SCHEME_SERVER_TRUST_EVALUATION_REQUESTED:
      RequestsOf(data).RefuseCertificate();
      webkit_authentication_request_cancel(request);
      return TRUE;
    default:
      break;
  }
  const std::shared_ptr<WebKitAuthenticationRequest> held = Held(request);
  RequestsOf(data).AskToSignIn(
      {Text(webkit_authentication_request_get_host(request)) + ":" +
           std::to_string(webkit_authentication_request_get_port(request)),
       Text(webkit_authentication_request_get_realm(request)),
       webkit_authentication_request_is_for_proxy(request) != FALSE,
       webkit_authentication_request_is_retry(request) != FALSE},
      [held](const auto& credentials) { Authenticate(held.get(), credentials); });
  return TRUE;
}

}  // namespace

RequestSignals::RequestSignals(WebKitWebView* view, PageRequests& requests, WantFiles want_files)
    : view_(view), requests_(requests), want_files_(std::move(want_files)) {
  const auto connect = [&](const char* signal, GCallback handler) {
    g_signal_connect(view_, signal, handler, &requests_);
  };
  g_signal_connect(view_, "run-file-chooser",
                   G_CALLBACK(+[](WebKitWebView*, WebKitFileChooserRequest* request,
                                  gpointer wants) -> gboolean {
                     (*static_cast<const WantFiles*>(wants))(UploadRequest(request));
                     return TRUE;
                   }),
                   &want_files_);
  connect("script-dialog", G_CALLBACK(&OnDialog));
  connect("permission-request", G_CALLBACK(&OnPermission));
  connect("authenticate", G_CALLBACK(&OnSignIn));
  connect("print",
          G_CALLBACK(+[](WebKitWebView*, WebKitPrintOperation*, gpointer data) -> gboolean {
            RequestsOf(data).AskToPrint();
            return TRUE;
          }));
  connect("enter-fullscreen", G_CALLBACK(+[](WebKitWebView*, gpointer data) -> gboolean {
            RequestsOf(data).ShownInFull(true);
            return FALSE;
          }));
  connect("leave-fullscreen", G_CALLBACK(+[](WebKitWebView*, gpointer data) -> gboolean {
            RequestsOf(data).ShownInFull(false);
            return FALSE;
          }));
}

RequestSignals::~RequestSignals() {
  g_signal_handlers_disconnect_by_data(view_, &requests_);
  g_signal_handlers_disconnect_by_data(view_, &want_files_);
}

}  // namespace corvane::desktop
