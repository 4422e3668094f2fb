#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "base/life.h"
#include "platform/script_dialogs.h"
#include "web/requests/Allowance.h"
#include "web/requests/QuestionDesk.h"

namespace corvane {

/// A dialog of a page's script, which waits until this goes. It then has the answer that
/// was given, or that of somebody who presses Escape.
class ScriptDialog {
 public:
  enum class Kind { Alert, Confirm, Prompt, Leave };

  ScriptDialog(Kind its_kind, std::string its_message, std::string its_preset)
      : kind(its_kind), message(std::move(its_message)), preset(std::move(its_preset)) {}
  virtual ~ScriptDialog() = default;
  ScriptDialog(const ScriptDialog&) = delete;
  ScriptDialog& operator=(const ScriptDialog&) = delete;

  virtual void Confirm(bool yes) = 0;
  virtual void Enter(const std::string& text) = 0;

  const Kind kind;
  const std::string message;
  const std::string preset;  ///< of a prompt
};

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
  /// `page` is as ScriptDialogs has it, `site` what people call the page's site.
  void Show(void* page, std::unique_ptr<ScriptDialog> dialog, const std::string& site);

 private:
  class Held;
  using HeldPtr = std::shared_ptr<Held>;
  HeldPtr Hold(std::unique_ptr<ScriptDialog> dialog);
  void ShowAlert(void* page, const std::string& message, const HeldPtr& held);
  void AskToConfirm(const std::string& message, const std::string& site, const HeldPtr& held);
  void AskForText(const std::string& message, const std::string& preset, const std::string& site,
                  const HeldPtr& held);
  void AskToLeave(const std::string& site, const HeldPtr& held);
  void Closed();

  std::shared_ptr<ScriptDialogs> alerts_;
  QuestionDesk& desk_;
  Listener listener_;
  Life life_;  // dialogs closed later find the object gone
  int open_count_ = 0;
  bool lets_leave_ = false;
  Allowance allowance_;
};

}  // namespace corvane
