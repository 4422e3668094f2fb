// The part of Corvane that lives in the page processes. It makes the page record
// of documents that run no scripts, where the page script cannot be reached from
// outside.
#include <webkit2/webkit-web-extension.h>

#include <string>

extern "C" {
GResource* corvane_page_get_resource(void);
G_MODULE_EXPORT void webkit_web_extension_initialize(WebKitWebExtension* extension);
}

namespace {

WebKitScriptWorld* world = nullptr;

WebKitFrame* MainFrameOf(WebKitWebPage* page) {
  // Deprecated in favour of a signal that is not emitted for documents without
  // scripts, which are the ones this is for.
  G_GNUC_BEGIN_IGNORE_DEPRECATIONS
  return webkit_web_page_get_main_frame(page);
  G_GNUC_END_IGNORE_DEPRECATIONS
}

std::string CollectRecord(WebKitWebPage* page) {
  JSCContext* context = webkit_frame_get_js_context_for_script_world(MainFrameOf(page), world);
  if (context == nullptr) return {};
  std::string record;
  GBytes* script = g_resource_lookup_data(corvane_page_get_resource(), "/org/corvane/web/record.js",
                                          G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr);
  if (script != nullptr) {
    gsize size = 0;
    const auto* code = static_cast<const char*>(g_bytes_get_data(script, &size));
    g_object_unref(jsc_context_evaluate(context, code, static_cast<gssize>(size)));
    JSCValue* result = jsc_context_evaluate(context, "corvane.collect()", -1);
    if (jsc_value_is_string(result)) {
      char* text = jsc_value_to_string(result);
      record = text;
      g_free(text);
    }
    g_object_unref(result);
    g_bytes_unref(script);
  }
  g_object_unref(context);
  return record;
}

gboolean OnMessage(WebKitWebPage* page, WebKitUserMessage* message, gpointer) {
  if (g_strcmp0(webkit_user_message_get_name(message), "collect") != 0) return FALSE;
  const std::string record = CollectRecord(page);
  webkit_user_message_send_reply(
      message, webkit_user_message_new("record", g_variant_new_string(record.c_str())));
  return TRUE;
}

void OnPageCreated(WebKitWebExtension*, WebKitWebPage* page, gpointer) {
  g_signal_connect(page, "user-message-received", G_CALLBACK(OnMessage), nullptr);
}

}  // namespace

G_MODULE_EXPORT void webkit_web_extension_initialize(WebKitWebExtension* extension) {
  world = webkit_script_world_new_with_name("corvane-record");
  g_signal_connect(extension, "page-created", G_CALLBACK(OnPageCreated), nullptr);
}
