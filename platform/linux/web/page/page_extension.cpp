// The part of Corvane that lives in the page processes. It runs the program's
// questions in the page scripts' world: also in documents that run no scripts, and
// without touching what the page may do because the user has just pressed a key
// (what the engine runs for the program from outside ends that at once).
#include <malloc.h>
#include <webkit2/webkit-web-extension.h>

#include <array>
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

void Run(JSCContext* context, const char* script, gssize size) {
  g_object_unref(jsc_context_evaluate(context, script, size));
}

// What reads a page and acts in it; the rest of the page scripts only hears what a page
// reports by itself.
constexpr std::array kScripts = {
    "record.js", "names.js",   "like_lists.js",  "table_grid.js",  "facts.js", "caret.js",
    "events.js", "changes.js", "text_writer.js", "text_tables.js", "text.js",  "text_use.js",
};

void RunResource(JSCContext* context, const char* name) {
  const std::string path = std::string("/org/corvane/web/") + name;
  GBytes* script = g_resource_lookup_data(corvane_page_get_resource(), path.c_str(),
                                          G_RESOURCE_LOOKUP_FLAGS_NONE, nullptr);
  if (script == nullptr) return;
  gsize size = 0;
  const auto* code = static_cast<const char*>(g_bytes_get_data(script, &size));
  Run(context, code, static_cast<gssize>(size));
  g_bytes_unref(script);
}

// Documents that run no scripts were not given the page scripts either; all others
// have them. A question follows every key in a page: nothing is read for it twice.
void EnsureScripts(JSCContext* context) {
  JSCValue* present = jsc_context_get_value(context, "corvane");
  const bool is_there = !jsc_value_is_undefined(present);
  g_object_unref(present);
  if (is_there) return;
  for (const char* script : kScripts) RunResource(context, script);
}

/// The expression's text as bytes, for it need not be valid UTF-8; null when the
/// expression fails or is no text.
GVariant* Evaluate(JSCContext* context, const char* expression) {
  JSCValue* result = jsc_context_evaluate(context, expression, -1);
  jsc_context_clear_exception(context);
  GVariant* answer = nullptr;
  if (jsc_value_is_string(result)) {
    GBytes* text = jsc_value_to_string_as_bytes(result);
    answer = g_variant_new_from_bytes(G_VARIANT_TYPE_BYTESTRING, text, TRUE);
    g_bytes_unref(text);
  }
  g_object_unref(result);
  return answer;
}

gboolean OnMessage(WebKitWebPage* page, WebKitUserMessage* message, gpointer) {
  GVariant* expression = webkit_user_message_get_parameters(message);
  if (expression == nullptr || !g_variant_is_of_type(expression, G_VARIANT_TYPE_STRING)) {
    return FALSE;
  }
  GVariant* answer = nullptr;
  JSCContext* context = webkit_frame_get_js_context_for_script_world(MainFrameOf(page), world);
  if (context != nullptr) {
    EnsureScripts(context);
    answer = Evaluate(context, g_variant_get_string(expression, nullptr));
    g_object_unref(context);
  }
  webkit_user_message_send_reply(message, webkit_user_message_new("answer", answer));
  return TRUE;
}

constexpr const char* kFrames = "corvaneFrames";

// The frames of a page may be of different origins, and then no script of one may look
// into another, the program's own neither. By this map, which all frames of a page have
// in common, the program's scripts find each other; no page sees it.
void GiveFrames(JSCContext* main, JSCContext* frame) {
  JSCValue* frames = jsc_context_get_value(main, kFrames);
  if (jsc_value_is_undefined(frames)) {
    g_object_unref(frames);
    frames = jsc_context_evaluate(main, "new WeakMap()", -1);
    jsc_context_set_value(main, kFrames, frames);
  }
  if (frame != main) jsc_context_set_value(frame, kFrames, frames);
  g_object_unref(frames);
}

void OnWindow(WebKitScriptWorld*, WebKitWebPage* page, WebKitFrame* frame, gpointer) {
  JSCContext* main = webkit_frame_get_js_context_for_script_world(MainFrameOf(page), world);
  JSCContext* context = webkit_frame_get_js_context_for_script_world(frame, world);
  if (main != nullptr && context != nullptr) GiveFrames(main, context);
  g_clear_object(&context);
  g_clear_object(&main);
}

// A large page's elements on their way to the accessibility bus leave a heap full of
// holes, which the allocator would keep: tens of megabytes after some hundred pages.
// Not in the program itself, where the keys would have to wait for it.
void ReturnFreeMemorySoon() {
  constexpr guint kQuietSeconds = 10;
  static guint waiting = 0;
  if (waiting != 0) g_source_remove(waiting);
  waiting = g_timeout_add_seconds_full(
      G_PRIORITY_LOW, kQuietSeconds,
      [](gpointer) -> gboolean {
        waiting = 0;
        malloc_trim(0);
        return G_SOURCE_REMOVE;
      },
      nullptr, nullptr);
}

void OnPageCreated(WebKitWebExtension*, WebKitWebPage* page, gpointer) {
  g_signal_connect(page, "user-message-received", G_CALLBACK(OnMessage), nullptr);
  g_signal_connect(page, "document-loaded",
                   G_CALLBACK(+[](WebKitWebPage*, gpointer) { ReturnFreeMemorySoon(); }), nullptr);
}

}  // namespace

G_MODULE_EXPORT void webkit_web_extension_initialize(WebKitWebExtension* extension) {
  world = webkit_script_world_new_with_name("corvane");  // kScriptWorld
  g_signal_connect(world, "window-object-cleared", G_CALLBACK(OnWindow), nullptr);
  g_signal_connect(extension, "page-created", G_CALLBACK(OnPageCreated), nullptr);
}
