#include "platform/linux/web/page_policy.h"

#include <libsoup/soup.h>

#include "base/text.h"
#include "platform/linux/glib/owner.h"

namespace corvane::desktop {
namespace {

bool IsAttachment(WebKitURIResponse* response) {
  SoupMessageHeaders* headers = webkit_uri_response_get_http_headers(response);
  if (headers == nullptr) return false;
  char* disposition = nullptr;
  GHashTable* parameters = nullptr;
  if (!soup_message_headers_get_content_disposition(headers, &disposition, &parameters)) {
    return false;
  }
  const Owned<GHashTable, g_hash_table_unref> unused(parameters);
  return text::same_ignoring_case(Taken(disposition), "attachment");
}

LoadWish::Way WayOf(WebKitNavigationType type) {
  if (type == WEBKIT_NAVIGATION_TYPE_BACK_FORWARD) return LoadWish::Way::History;
  if (type == WEBKIT_NAVIGATION_TYPE_RELOAD) return LoadWish::Way::Reload;
  return LoadWish::Way::Ahead;
}

}  // namespace

LoadWish WishOf(WebKitNavigationAction* action) {
  return {Text(webkit_uri_request_get_uri(webkit_navigation_action_get_request(action))),
          WayOf(webkit_navigation_action_get_navigation_type(action)),
          webkit_navigation_action_is_redirect(action) != FALSE,
          webkit_navigation_action_is_user_gesture(action) != FALSE, LoadWish::Where::InPlace};
}

LoadAnswer AnswerOf(WebKitResponsePolicyDecision* decision) {
  WebKitURIResponse* response = webkit_response_policy_decision_get_response(decision);
  return {Text(webkit_uri_response_get_uri(response)),
          Text(webkit_uri_response_get_mime_type(response)),
          webkit_response_policy_decision_is_mime_type_supported(decision) != FALSE,
          webkit_response_policy_decision_is_main_frame_main_resource(decision) != FALSE,
          IsAttachment(response)};
}

}  // namespace corvane::desktop
