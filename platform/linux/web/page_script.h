#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/linux/web/gobject.h"

namespace corvane::desktop {

/// The script world that the page scripts live in; pages cannot see it.
inline constexpr const char* kScriptWorld = "corvane";

/// Runs the expression in the page's main frame, in the page scripts' world, and
/// hands on its text: none when the document runs no scripts, the script fails
/// or the page's process is gone. Never calls back before it returns.
void Evaluate(WebKitWebView* view, const std::string& expression, GCancellable* cancellable,
              std::function<void(std::optional<std::string>)> done);

/// Asks the page's process itself for the record, for documents that run no
/// scripts. Same contract as Evaluate.
void CollectWithoutScripts(WebKitWebView* view, GCancellable* cancellable,
                           std::function<void(std::optional<std::string>)> done);

/// Installs the page scripts and hands on each message they post: the kind and the
/// text.
class PageScript {
 public:
  using Receiver = std::function<void(const std::string& kind, const std::string& text)>;
  PageScript(WebKitUserContentManager* manager, Receiver receiver);
  ~PageScript();
  PageScript(const PageScript&) = delete;
  PageScript& operator=(const PageScript&) = delete;

 private:
  static void OnMessage(WebKitUserContentManager*, WebKitJavascriptResult* result, gpointer self);

  ObjectPtr<WebKitUserContentManager> manager_;
  Receiver receiver_;
};

}  // namespace corvane::desktop
