#include "platform/linux/web/requests/page_dialogs.h"

#include <utility>

#include "platform/linux/glib/owner.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr int kMostAlerts = 5;
constexpr int kShortTime = 60;  // seconds
constexpr std::size_t kLongestMessage = 10'000;

std::string MessageOf(WebKitScriptDialog* dialog) {
  return Shorten(Text(webkit_script_dialog_get_message(dialog)), kLongestMessage);
}

}  // namespace

PageDialogs::PageDialogs(std::shared_ptr<ScriptDialogs> alerts, QuestionDesk& desk,
                         Listener listener)
    : alerts_(std::move(alerts)),
      desk_(desk),
      listener_(std::move(listener)),
      self_(std::make_shared<PageDialogs*>(this)),
      allowance_(kMostAlerts, kShortTime) {}

void PageDialogs::Reset() {
  allowance_.Reset();
  lets_leave_ = false;
}

/// A dialog that holds its page. Closing it, or forgetting it, lets the page go on.
class PageDialogs::Held {
 public:
  Held(WebKitScriptDialog* dialog, std::weak_ptr<PageDialogs*> owner)
      : dialog_(webkit_script_dialog_ref(dialog)), owner_(std::move(owner)) {}
  ~Held() { Close(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  void Confirm(bool yes) {
    if (dialog_ != nullptr) webkit_script_dialog_confirm_set_confirmed(dialog_, yes);
    Close();
  }
  void Enter(const std::string& text) {
    if (dialog_ != nullptr) webkit_script_dialog_prompt_set_text(dialog_, text.c_str());
    Close();
  }
  void Close() {
    WebKitScriptDialog* dialog = std::exchange(dialog_, nullptr);
    if (dialog == nullptr) return;
    // The last reference closes it. Closing it by name while the engine still
    // reports it makes the engine use a null pointer.
    webkit_script_dialog_unref(dialog);
    if (const auto owner = owner_.lock()) (*owner)->Closed();
  }

 private:
  WebKitScriptDialog* dialog_;  // null once closed
  std::weak_ptr<PageDialogs*> owner_;
};

std::shared_ptr<PageDialogs::Held> PageDialogs::Hold(WebKitScriptDialog* dialog) {
  if (open_count_++ == 0) listener_.open(true);
  return std::make_shared<Held>(dialog, self_);
}

void PageDialogs::Closed() {
  if (--open_count_ == 0) listener_.open(false);
}

void PageDialogs::Show(GtkWidget* page, WebKitScriptDialog* dialog, const std::string& site) {
  const auto type = webkit_script_dialog_get_dialog_type(dialog);
  if (type == WEBKIT_SCRIPT_DIALOG_BEFORE_UNLOAD_CONFIRM) {
    if (!std::exchange(lets_leave_, false)) return ShowBeforeUnload(dialog, site);
    return webkit_script_dialog_confirm_set_confirmed(dialog, TRUE);
  }
  if (!allowance_.Take()) {  // returning lets the page go on
    return listener_.tell("This page shows too many messages. No more of them are shown.");
  }
  if (type == WEBKIT_SCRIPT_DIALOG_ALERT) return ShowAlert(page, dialog);
  if (type == WEBKIT_SCRIPT_DIALOG_CONFIRM) return ShowConfirm(dialog, site);
  ShowPrompt(dialog, site);
}

void PageDialogs::ShowAlert(GtkWidget* page, WebKitScriptDialog* dialog) {
  const std::string text = MessageOf(dialog);
  if (!alerts_) return listener_.status(text);
  alerts_->ShowAlert(page, text, [held = Hold(dialog)] { held->Close(); });
}

void PageDialogs::ShowConfirm(WebKitScriptDialog* dialog, const std::string& site) {
  desk_.Ask(
      QuestionDesk::Asker::Page, {"Question of " + site, MessageOf(dialog), {}, {"&OK", "&Cancel"}},
      [held = Hold(dialog)](const auto& reply) { held->Confirm(reply && reply->button == 0); });
}

void PageDialogs::ShowPrompt(WebKitScriptDialog* dialog, const std::string& site) {
  const std::string preset = Text(webkit_script_dialog_prompt_get_default_text(dialog));
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Question of " + site,
             MessageOf(dialog),
             {{.label = "Answer", .value = Shorten(preset, kLongestMessage)}},
             {"&OK", "&Cancel"}},
            [held = Hold(dialog)](const auto& reply) {
              if (reply && reply->button == 0) return held->Enter(reply->values.at(0));
              held->Close();
            });
}

// The page's own words are not shown: they were used to frighten people into
// staying.
void PageDialogs::ShowBeforeUnload(WebKitScriptDialog* dialog, const std::string& site) {
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Leave this page?",
             "The page " + site +
                 " asks whether you want to leave it. What you have entered there "
                 "may be lost.",
             {},
             {"&Leave", "&Stay"}},
            [held = Hold(dialog), owner = std::weak_ptr(self_)](const auto& reply) {
              const bool leaves = !reply || reply->button == 0;
              held->Confirm(leaves);
              const auto self = owner.lock();
              if (!leaves && self) (*self)->listener_.stay();
            });
}

}  // namespace corvane::desktop
