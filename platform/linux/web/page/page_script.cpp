#include "platform/linux/web/page/page_script.h"

#include <jsc/jsc.h>

#include <memory>
#include <utility>

#include "platform/linux/web/web_resource.h"

namespace corvane::desktop {
namespace {

using Done = std::function<void(std::optional<std::string>)>;

/// The text that an answer is; nothing where it is none.
std::optional<std::string> TextOf(JSCValue* answer) {
  const ObjectPtr<JSCValue> value(answer);
  if (!value || !jsc_value_is_string(value.get())) return std::nullopt;
  return Taken(jsc_value_to_string(value.get()));
}

void OnAwaited(GObject* view, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<Done> done(static_cast<Done*>(data));
  (*done)(TextOf(webkit_web_view_call_async_javascript_function_finish(WEBKIT_WEB_VIEW(view),
                                                                       result, nullptr)));
}

struct Act {
  std::string call;
  Done done;
};

// A document that runs no scripts is asked by the other way; nothing in it hears of it.
void OnActed(GObject* view, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<Act> act(static_cast<Act*>(data));
  auto answer =
      TextOf(webkit_web_view_evaluate_javascript_finish(WEBKIT_WEB_VIEW(view), result, nullptr));
  if (answer) return act->done(std::move(answer));
  Evaluate(WEBKIT_WEB_VIEW(view), "corvane.parts.isSilent() ? " + act->call + " : null",
           std::move(act->done));
}

void OnReplied(GObject* view, GAsyncResult* result, gpointer data) {
  const std::unique_ptr<Done> done(static_cast<Done*>(data));
  WebKitUserMessage* reply =
      webkit_web_view_send_message_to_page_finish(WEBKIT_WEB_VIEW(view), result, nullptr);
  if (reply == nullptr) return (*done)(std::nullopt);
  const ObjectPtr<WebKitUserMessage> owner(reply);
  GVariant* content = webkit_user_message_get_parameters(reply);
  if (content == nullptr || !g_variant_is_of_type(content, G_VARIANT_TYPE_BYTESTRING)) {
    return (*done)(std::nullopt);
  }
  const auto* text = static_cast<const char*>(g_variant_get_data(content));
  (*done)(std::string(text, g_variant_get_size(content)));
}

}  // namespace

void Evaluate(WebKitWebView* view, const std::string& expression, Done done) {
  webkit_web_view_send_message_to_page(
      view, webkit_user_message_new("evaluate", g_variant_new_string(expression.c_str())), nullptr,
      &OnReplied, new Done(std::move(done)));
}

void ActForUser(WebKitWebView* view, const std::string& call, Done done) {
  webkit_web_view_evaluate_javascript(view, call.c_str(), static_cast<gssize>(call.size()),
                                      kScriptWorld, nullptr, nullptr, &OnActed,
                                      new Act{call, std::move(done)});
}

void Await(WebKitWebView* view, const std::string& expression, Done done) {
  const std::string body = "return await " + expression;
  webkit_web_view_call_async_javascript_function(
      view, body.c_str(), static_cast<gssize>(body.size()), nullptr, kScriptWorld, nullptr, nullptr,
      &OnAwaited, new Done(std::move(done)));
}

PageScript::PageScript(WebKitUserContentManager* manager, const std::vector<const char*>& parts,
                       std::string channel, Receiver receiver)
    : manager_(WEBKIT_USER_CONTENT_MANAGER(g_object_ref(manager))),
      channel_(std::move(channel)),
      receiver_(std::move(receiver)) {
  // Connected before the handler is registered, so that no message is lost.
  g_signal_connect(manager, ("script-message-received::" + channel_).c_str(),
                   G_CALLBACK(&PageScript::OnMessage), this);
  webkit_user_content_manager_register_script_message_handler_in_world(manager, channel_.c_str(),
                                                                       kScriptWorld);
  for (const char* part : parts) {
    scripts_.emplace_back(webkit_user_script_new_for_world(
        WebResource(part).c_str(), WEBKIT_USER_CONTENT_INJECT_ALL_FRAMES,
        WEBKIT_USER_SCRIPT_INJECT_AT_DOCUMENT_START, kScriptWorld, nullptr, nullptr));
    webkit_user_content_manager_add_script(manager, scripts_.back().get());
  }
}

PageScript::~PageScript() {
  g_signal_handlers_disconnect_by_data(manager_.get(), this);
  for (const auto& script : scripts_) {
    webkit_user_content_manager_remove_script(manager_.get(), script.get());
  }
  webkit_user_content_manager_unregister_script_message_handler_in_world(
      manager_.get(), channel_.c_str(), kScriptWorld);
}

void PageScript::OnMessage(WebKitUserContentManager*, WebKitJavascriptResult* result,
                           gpointer self) {
  JSCValue* value = webkit_javascript_result_get_js_value(result);
  if (!jsc_value_is_string(value)) return;
  const GText raw(jsc_value_to_string(value));
  const std::string message = Text(raw.get());
  const auto end = message.find('\n');
  if (end == std::string::npos) return;
  static_cast<PageScript*>(self)->receiver_(message.substr(0, end), message.substr(end + 1));
}

}  // namespace corvane::desktop
