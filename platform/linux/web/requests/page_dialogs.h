#pragma once

#include <webkit2/webkit2.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/web/requests/allowance.h"
#include "platform/linux/web/requests/question_desk.h"
#include "platform/linux/web/requests/script_dialogs.h"

namespace corvane::desktop {

/// Shows the dialogs of a page's scripts: alerts through the ScriptDialogs,
/// confirm, prompt and the question whether the page may be left as questions. A
/// page that shows one after the other cannot hold the user: after a few in a
/// short time the rest do not appear, and are answered as if Escape was pressed.
class PageDialogs {
 public:
  struct Listener {
    /// Whether a dialog holds the page now.
    std::function<void(bool)> open;
    /// A text for the status bar.
    std::function<void(const std::string&)> status;
    /// A sentence that the user must hear.
    std::function<void(const std::string&)> tell;
    /// The user does not want to leave the page.
    std::function<void()> stay;
  };

  PageDialogs(std::shared_ptr<ScriptDialogs> alerts, QuestionDesk& desk, Listener listener);

  /// Another page is shown: its alerts count anew.
  void Reset();
  /// The user has agreed to leave the page, which is not to ask once more on the same
  /// way; or is not on that way any more.
  void LetLeave(bool lets) { lets_leave_ = lets; }
  /// `page` is the view, `site` what people call the page's site.
  void Show(GtkWidget* page, WebKitScriptDialog* dialog, const std::string& site);

 private:
  void ShowAlert(GtkWidget* page, WebKitScriptDialog* dialog);
  void ShowConfirm(WebKitScriptDialog* dialog, const std::string& site);
  void ShowPrompt(WebKitScriptDialog* dialog, const std::string& site);
  void ShowBeforeUnload(WebKitScriptDialog* dialog, const std::string& site);
  class Held;
  std::shared_ptr<Held> Hold(WebKitScriptDialog* dialog);
  void Closed();

  std::shared_ptr<ScriptDialogs> alerts_;
  QuestionDesk& desk_;
  Listener listener_;
  std::shared_ptr<PageDialogs*> self_;  // dialogs closed later find the object gone
  int open_count_ = 0;
  bool lets_leave_ = false;
  Allowance allowance_;
};

}  // namespace corvane::desktop
