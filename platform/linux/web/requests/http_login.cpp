#include "platform/linux/web/requests/http_login.h"

#include <memory>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr std::size_t kLongestRealm = 200;

// The page that the server shows to strangers comes.
void GoOnWithoutPassword(WebKitAuthenticationRequest* request) {
  webkit_authentication_request_authenticate(request, nullptr);
}

std::string TextOf(WebKitAuthenticationRequest* request, const std::string& server) {
  std::string text;
  if (webkit_authentication_request_is_retry(request)) {
    text += "The name or the password was not right. ";
  }
  text += webkit_authentication_request_is_for_proxy(request) ? "The proxy " : "The server ";
  text += server + " asks for a user name and a password.";
  const std::string realm =
      Shorten(Text(webkit_authentication_request_get_realm(request)), kLongestRealm);
  if (!realm.empty()) text += " It says: " + realm;
  return text;
}

}  // namespace

HttpLogin::HttpLogin(QuestionDesk& desk, PageNotices& notices) : desk_(desk), notices_(notices) {}

void HttpLogin::Ask(WebKitAuthenticationRequest* request) {
  switch (webkit_authentication_request_get_scheme(request)) {
    case WEBKIT_AUTHENTICATION_SCHEME_CLIENT_CERTIFICATE_REQUESTED:
    case WEBKIT_AUTHENTICATION_SCHEME_CLIENT_CERTIFICATE_PIN_REQUESTED:
    case WEBKIT_AUTHENTICATION_SCHEME_SERVER_TRUST_EVALUATION_REQUESTED:
      notices_.Tell("The site asks for a certificate of yours. None is given.");
      return webkit_authentication_request_cancel(request);
    default:
      break;
  }
  const std::string server = Text(webkit_authentication_request_get_host(request)) + ":" +
                             std::to_string(webkit_authentication_request_get_port(request));
  const std::string key = server + "\n" + Text(webkit_authentication_request_get_realm(request));
  if (given_up_.contains(key)) return GoOnWithoutPassword(request);

  const std::shared_ptr<WebKitAuthenticationRequest> held = Held(request);
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Sign in",
             TextOf(request, server),
             {{.label = "User name"}, {.kind = DialogField::Kind::kPassword, .label = "Password"}},
             {"&Sign in", "&Cancel"}},
            [this, held, key](const auto& reply) {
              if (!reply || reply->button != 0) {
                given_up_.insert(key);
                return GoOnWithoutPassword(held.get());
              }
              WebKitCredential* credential =
                  webkit_credential_new(reply->values.at(0).c_str(), reply->values.at(1).c_str(),
                                        WEBKIT_CREDENTIAL_PERSISTENCE_FOR_SESSION);
              webkit_authentication_request_authenticate(held.get(), credential);
              webkit_credential_free(credential);
            });
}

}  // namespace corvane::desktop
