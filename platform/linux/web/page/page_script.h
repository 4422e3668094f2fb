#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// The script world that the page scripts live in; pages cannot see it.
inline constexpr const char* kScriptWorld = "corvane";

/// Runs the expression in the page's main frame, in the page scripts' world, and
/// hands on its text (bytes that are UTF-8 if the page's text is): none when the
/// script fails or the page's process is gone. Works in documents that run no
/// scripts, too; there the record's part of the page scripts is all there is. The
/// page is not given, and does not lose, the rights that follow a user's key or click.
/// Never calls back before it returns.
void Evaluate(WebKitWebView* view, const std::string& expression,
              std::function<void(std::optional<std::string>)> done);

/// Runs a call in the same place as something that the user does: what follows in
/// the page has the rights that a click gives. `done` is given its text as by Evaluate.
void ActForUser(
    WebKitWebView* view, const std::string& call,
    std::function<void(std::optional<std::string>)> done = [](const auto&) {});

/// Evaluates an expression that promises its text and waits for it. Not for ever; the
/// promise must keep itself. None in documents that run no scripts, and rights that
/// the page has from a key end: for pages that are only just coming.
void Await(WebKitWebView* view, const std::string& expression,
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
