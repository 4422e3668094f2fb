#include "platform/linux/web/page_policy.h"

#include <libsoup/soup.h>

#include "base/text.h"
#include "platform/linux/glib/owner.h"
#include "platform/linux/web/documents/document_address.h"
#include "platform/linux/web/documents/document_fetch.h"
#include "platform/linux/web/requests/outside_links.h"

namespace corvane::desktop {
namespace {

std::string AddressOf(WebKitNavigationAction* action) {
  return Text(webkit_uri_request_get_uri(webkit_navigation_action_get_request(action)));
}

bool IsFile(const std::string& address) { return address.starts_with("file:"); }
bool IsOwnPage(const std::string& address) { return address.starts_with("corvane:"); }

/// Whether the program itself has asked for it.
bool IsAskedFor(const std::string& address, const std::string& requested) {
  if (IsDocumentPage(address)) return address == requested;
  // The engine writes addresses in its own way, so only their kind is compared.
  return (IsOwnPage(address) && IsOwnPage(requested)) || (IsFile(address) && IsFile(requested));
}

/// Whether that is a place in the document that is shown.
bool IsWithin(const std::string& address, const std::string& document) {
  return !document.empty() && WithoutPlace(address) == WithoutPlace(document);
}

Verdict JudgeNavigation(WebKitNavigationAction* action, const PolicyContext& context) {
  const std::string address = AddressOf(action);
  const auto type = webkit_navigation_action_get_navigation_type(action);
  const bool from_history = type == WEBKIT_NAVIGATION_TYPE_BACK_FORWARD;
  const bool gesture = webkit_navigation_action_is_user_gesture(action);
  if (IsOutside(address)) return {Verdict::Kind::Outside, address, false, gesture};
  if (!IsFile(address) && !IsOwnPage(address)) {
    return {Verdict::Kind::Use, address, from_history, gesture};
  }
  const bool known = from_history || type == WEBKIT_NAVIGATION_TYPE_RELOAD;
  const bool from_own = IsOwnPage(context.present) && !IsDocumentPage(address);
  const bool from_here = from_own || (IsFile(context.present) && IsFile(address)) ||
                         IsWithin(address, context.document);
  const bool asked_for = IsAskedFor(address, context.requested);
  const bool allowed =
      !webkit_navigation_action_is_redirect(action) && (known || from_here || asked_for);
  return {allowed ? Verdict::Kind::Use : Verdict::Kind::Ignore, address, from_history, gesture};
}

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

Verdict JudgeAnswer(WebKitResponsePolicyDecision* decision) {
  WebKitURIResponse* response = webkit_response_policy_decision_get_response(decision);
  const std::string address = Text(webkit_uri_response_get_uri(response));
  // The engine draws documents, and their words are nowhere to be read.
  const bool is_document = IsDocumentKind(Text(webkit_uri_response_get_mime_type(response)));
  const bool supported =
      webkit_response_policy_decision_is_mime_type_supported(decision) && !is_document;
  const bool attached = IsAttachment(response);
  if (supported && !attached) return {Verdict::Kind::Use, address};
  // A picture of an unknown kind inside a page is nobody's download.
  const bool is_page = webkit_response_policy_decision_is_main_frame_main_resource(decision);
  if (is_document && is_page && !attached) return {Verdict::Kind::Document, address};
  return {is_page || attached ? Verdict::Kind::Download : Verdict::Kind::Ignore, address};
}

}  // namespace

Verdict JudgeNewWindow(WebKitNavigationAction* action, const PolicyContext& context) {
  const std::string address = AddressOf(action);
  const bool gesture = webkit_navigation_action_is_user_gesture(action);
  if (IsOutside(address)) return {Verdict::Kind::Outside, address, false, gesture};
  const bool allowed = !IsOwnPage(address) && (!IsFile(address) || IsFile(context.present));
  return {allowed ? Verdict::Kind::Use : Verdict::Kind::Ignore, address, false, gesture};
}

Verdict Judge(WebKitPolicyDecision* decision, WebKitPolicyDecisionType type,
              const PolicyContext& context) {
  switch (type) {
    case WEBKIT_POLICY_DECISION_TYPE_NAVIGATION_ACTION:
      return JudgeNavigation(webkit_navigation_policy_decision_get_navigation_action(
                                 WEBKIT_NAVIGATION_POLICY_DECISION(decision)),
                             context);
    case WEBKIT_POLICY_DECISION_TYPE_NEW_WINDOW_ACTION:
      return JudgeNewWindow(webkit_navigation_policy_decision_get_navigation_action(
                                WEBKIT_NAVIGATION_POLICY_DECISION(decision)),
                            context);
    case WEBKIT_POLICY_DECISION_TYPE_RESPONSE:
      return JudgeAnswer(WEBKIT_RESPONSE_POLICY_DECISION(decision));
  }
  return {};
}

}  // namespace corvane::desktop
