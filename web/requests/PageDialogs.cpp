#include "web/requests/PageDialogs.h"

#include "base/safe_name.h"

namespace corvane {
namespace {

constexpr int kMostAlerts = 5;
constexpr int kShortTime = 60;  // seconds
constexpr std::size_t kLongestMessage = 10'000;

}  // namespace

PageDialogs::PageDialogs(std::shared_ptr<ScriptDialogs> alerts, QuestionDesk& desk,
                         Listener listener)
    : alerts_(std::move(alerts)),
      desk_(desk),
      listener_(std::move(listener)),
      allowance_(kMostAlerts, kShortTime) {}

void PageDialogs::Reset() {
  allowance_.Reset();
  lets_leave_ = false;
}

/// A dialog that holds its page. Closing it, or forgetting it, lets the page go on.
class PageDialogs::Held {
 public:
  Held(std::unique_ptr<ScriptDialog> dialog, PageDialogs& owner)
      : dialog_(std::move(dialog)), owner_(owner), owner_lives_(owner.life_.Look()) {}
  ~Held() { Close(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  void Confirm(bool yes) {
    if (dialog_) dialog_->Confirm(yes);
    Close();
  }
  void Enter(const std::string& text) {
    if (dialog_) dialog_->Enter(text);
    Close();
  }
  void Close() {
    if (!std::exchange(dialog_, nullptr)) return;
    if (owner_lives_) owner_.Closed();
  }

 private:
  std::unique_ptr<ScriptDialog> dialog_;  // null once closed
  PageDialogs& owner_;
  const Life::Watch owner_lives_;
};

PageDialogs::HeldPtr PageDialogs::Hold(std::unique_ptr<ScriptDialog> dialog) {
  if (open_count_++ == 0) listener_.open(true);
  return std::make_shared<Held>(std::move(dialog), *this);
}

void PageDialogs::Closed() {
  if (--open_count_ == 0) listener_.open(false);
}

void PageDialogs::Show(void* page, std::unique_ptr<ScriptDialog> dialog, const std::string& site) {
  const auto kind = dialog->kind;
  if (kind == ScriptDialog::Kind::Leave) {
    if (std::exchange(lets_leave_, false)) return dialog->Confirm(true);
    return AskToLeave(site, Hold(std::move(dialog)));
  }
  if (!allowance_.Take()) {  // returning lets the page go on
    return listener_.tell("This page shows too many messages. No more of them are shown.");
  }
  const std::string message = Shorten(dialog->message, kLongestMessage);
  if (kind == ScriptDialog::Kind::Alert && !alerts_) return listener_.status(message);
  const std::string preset = Shorten(dialog->preset, kLongestMessage);
  const HeldPtr held = Hold(std::move(dialog));
  if (kind == ScriptDialog::Kind::Alert) return ShowAlert(page, message, held);
  if (kind == ScriptDialog::Kind::Confirm) return AskToConfirm(message, site, held);
  AskForText(message, preset, site, held);
}

void PageDialogs::ShowAlert(void* page, const std::string& message, const HeldPtr& held) {
  alerts_->ShowAlert(page, message, [held] { held->Close(); });
}

void PageDialogs::AskToConfirm(const std::string& message, const std::string& site,
                               const HeldPtr& held) {
  DialogQuestion question{"Question of " + site, message, {}, {"&OK", "&Cancel"}};
  question.from_page = true;
  desk_.Ask(QuestionDesk::Asker::Page, std::move(question),
            [held](const auto& reply) { held->Confirm(reply && reply->button == 0); });
}

void PageDialogs::AskForText(const std::string& message, const std::string& preset,
                             const std::string& site, const HeldPtr& held) {
  DialogQuestion question{
      "Question of " + site, message, {{.label = "Answer", .value = preset}}, {"&OK", "&Cancel"}};
  question.from_page = true;
  desk_.Ask(QuestionDesk::Asker::Page, std::move(question), [held](const auto& reply) {
    if (reply && reply->button == 0) return held->Enter(reply->values.at(0));
    held->Close();
  });
}

// The page's own words are not shown: they were used to frighten people into
// staying.
void PageDialogs::AskToLeave(const std::string& site, const HeldPtr& held) {
  desk_.Ask(QuestionDesk::Asker::Page,
            {"Leave this page?",
             "The page " + site +
                 " asks whether you want to leave it. What you have entered there "
                 "may be lost.",
             {},
             {"&Leave", "&Stay"}},
            [this, held, here = life_.Look()](const auto& reply) {
              const bool leaves = !reply || reply->button == 0;
              held->Confirm(leaves);
              if (!leaves && here) listener_.stay();
            });
}

}  // namespace corvane
