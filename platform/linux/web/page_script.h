#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/web/gobject.h"

namespace corvane::desktop {

/// The script world that the page scripts live in; pages cannot see it.
inline constexpr const char* kScriptWorld = "corvane";

/// Runs the expression in the page's main frame, in the page scripts' world, and
/// hands on its text: none when the document runs no scripts, the script fails
/// or the page's process is gone. Never calls back before it returns.
void Evaluate(WebKitWebView* view, const std::string& expression, GCancellable* cancellable,
              std::function<void(std::optional<std::string>)> done);

/// The same for an expression that promises its text: waits for it. Not for ever;
/// the promise must keep itself.
void Await(WebKitWebView* view, const std::string& expression, GCancellable* cancellable,
           std::function<void(std::optional<std::string>)> done);

/// Asks the page's process itself for the record, for documents that run no
/// scripts. Same contract as Evaluate.
void CollectWithoutScripts(WebKitWebView* view, GCancellable* cancellable,
                           std::function<void(std::optional<std::string>)> done);

/// Installs scripts of the program in every frame and hands on each message that they
/// post to their channel: the kind and the text.
class PageScript {
 public:
  using Receiver = std::function<void(const std::string& kind, const std::string& text)>;
  /// `parts`: the scripts' files, in order; `channel`: where they post.
  PageScript(WebKitUserContentManager* manager, const std::vector<const char*>& parts,
             std::string channel, Receiver receiver);
  ~PageScript();
  PageScript(const PageScript&) = delete;
  PageScript& operator=(const PageScript&) = delete;

 private:
  static void OnMessage(WebKitUserContentManager*, WebKitJavascriptResult* result, gpointer self);

  struct Unref {
    void operator()(WebKitUserScript* script) const { webkit_user_script_unref(script); }
  };

  ObjectPtr<WebKitUserContentManager> manager_;
  std::string channel_;
  std::vector<std::unique_ptr<WebKitUserScript, Unref>> scripts_;
  Receiver receiver_;
};

}  // namespace corvane::desktop
