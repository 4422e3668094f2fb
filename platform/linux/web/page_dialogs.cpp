#include "platform/linux/web/page_dialogs.h"

#include <optional>
#include <utility>

#include "platform/linux/web/gobject.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

constexpr int kMostAlerts = 5;
constexpr gint64 kShortTime = 60 * G_USEC_PER_SEC;
constexpr std::size_t kLongestMessage = 10'000;

}  // namespace

PageDialogs::PageDialogs(std::shared_ptr<ScriptDialogs> dialogs, std::function<void(bool)> open,
                         std::function<void(const std::string&)> notice)
    : dialogs_(std::move(dialogs)),
      open_(std::move(open)),
      notice_(std::move(notice)),
      self_(std::make_shared<PageDialogs*>(this)) {}

void PageDialogs::Reset() {
  alerts_ = 0;
  muted_ = false;
}

bool PageDialogs::MayAlert() {
  if (muted_) return false;
  const gint64 now = g_get_monotonic_time();
  if (alerts_ == 0 || now - first_alert_ > kShortTime) {
    alerts_ = 0;
    first_alert_ = now;
  }
  muted_ = ++alerts_ > kMostAlerts;
  if (muted_) notice_("This page shows too many messages. No more of them are shown.");
  return !muted_;
}

/// A dialog that holds its page. Closing it, or forgetting it, lets the page go on.
class PageDialogs::Held {
 public:
  Held(WebKitScriptDialog* dialog, std::weak_ptr<PageDialogs*> owner)
      : dialog_(webkit_script_dialog_ref(dialog)), owner_(std::move(owner)) {}
  ~Held() { Close(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  WebKitScriptDialog* dialog() const { return dialog_; }  ///< null once closed
  void Close() {
    WebKitScriptDialog* dialog = std::exchange(dialog_, nullptr);
    if (dialog == nullptr) return;
    // The last reference closes it. Closing it by name while the engine still
    // reports it makes the engine use a null pointer.
    webkit_script_dialog_unref(dialog);
    if (const auto owner = owner_.lock()) (*owner)->Closed();
  }

 private:
  WebKitScriptDialog* dialog_;
  std::weak_ptr<PageDialogs*> owner_;
};

std::shared_ptr<PageDialogs::Held> PageDialogs::Hold(WebKitScriptDialog* dialog) {
  if (open_count_++ == 0) open_(true);
  return std::make_shared<Held>(dialog, self_);
}

void PageDialogs::Closed() {
  if (--open_count_ == 0) open_(false);
}

void PageDialogs::ShowAlert(WebKitScriptDialog* dialog) {
  if (!MayAlert()) return;  // returning lets the page go on
  const std::string text = Shorten(Text(webkit_script_dialog_get_message(dialog)), kLongestMessage);
  if (!dialogs_) return notice_(text);
  dialogs_->ShowAlert(text, [held = Hold(dialog)] { held->Close(); });
}

void PageDialogs::Show(WebKitScriptDialog* dialog) {
  const auto type = webkit_script_dialog_get_dialog_type(dialog);
  if (type == WEBKIT_SCRIPT_DIALOG_ALERT) return ShowAlert(dialog);
  const std::string text = Shorten(Text(webkit_script_dialog_get_message(dialog)), kLongestMessage);
  if (!dialogs_) {
    if (type != WEBKIT_SCRIPT_DIALOG_PROMPT) {
      webkit_script_dialog_confirm_set_confirmed(
          dialog, type == WEBKIT_SCRIPT_DIALOG_BEFORE_UNLOAD_CONFIRM);
    }
    return;
  }
  const auto held = Hold(dialog);
  auto answer = [held](bool yes) {
    if (held->dialog() != nullptr) webkit_script_dialog_confirm_set_confirmed(held->dialog(), yes);
    held->Close();
  };
  if (type == WEBKIT_SCRIPT_DIALOG_CONFIRM) return dialogs_->ShowConfirm(text, std::move(answer));
  if (type == WEBKIT_SCRIPT_DIALOG_BEFORE_UNLOAD_CONFIRM) {
    return dialogs_->ShowBeforeUnload(text, std::move(answer));
  }
  dialogs_->ShowPrompt(text, Text(webkit_script_dialog_prompt_get_default_text(dialog)),
                       [held](std::optional<std::string> typed) {
                         if (typed && held->dialog() != nullptr) {
                           webkit_script_dialog_prompt_set_text(held->dialog(), typed->c_str());
                         }
                         held->Close();
                       });
}

}  // namespace corvane::desktop
