#include "platform/linux/permissions_dialog.h"

#include <algorithm>
#include <utility>

#include "base/count.h"
#include "base/safe_name.h"

namespace corvane::desktop {
namespace {

enum Button : int { kTakeBack, kTakeAllBack, kClose };

constexpr const char* kNotStored =
    " This could not be stored: when Corvane is started again, it is as it was.";

/// A site as it is said: without the usual scheme.
std::string Site(const std::string& origin) {
  const std::string usual = "https://";
  return PlainName(origin.starts_with(usual) ? origin.substr(usual.size()) : origin);
}

std::string Words(const PermissionBook::Decision& decision) {
  return Site(decision.site) + ", " + PlainName(decision.kind) +
         (decision.allowed ? ", always allowed" : ", never allowed");
}

std::string Decisions(std::size_t count) {
  if (count == 0) return "No site is allowed or refused anything for good.";
  return Counted(count, "decision is kept.", "decisions are kept.");
}

}  // namespace

PermissionsDialog::PermissionsDialog(SpokenDialogs& dialogs, std::function<PermissionBook&()> book)
    : dialogs_(dialogs), book_(std::move(book)) {}

void PermissionsDialog::Show(std::function<void()> closed) {
  closed_ = std::move(closed);
  Ask("");
}

void PermissionsDialog::Ask(const std::string& done_so_far) {
  shown_ = book_().List();
  dialogs_.Ask(Question(done_so_far), [this](const DialogAnswer& answer) { Answered(answer); });
}

DialogQuestion PermissionsDialog::Question(const std::string& done_so_far) const {
  DialogQuestion question = {.title = "Sites' permissions",
                             .text = done_so_far + Decisions(shown_.size()),
                             .buttons = {"&Close"}};
  if (shown_.empty()) return question;
  std::vector<std::string> words;
  for (const auto& decision : shown_) words.push_back(Words(decision));
  question.fields = {{DialogField::Kind::kChoice, "&Site", words.front(), words}};
  question.buttons = {"&Take back", "Take &all back", "&Close"};
  question.default_button = kClose;
  return question;
}

void PermissionsDialog::Answered(const DialogAnswer& answer) {
  if (shown_.empty() || answer.button == kClose) {
    shown_.clear();
    const auto closed = std::exchange(closed_, nullptr);
    if (closed) closed();
    return;
  }
  Ask(answer.button == kTakeBack ? TakeBack(answer.values.at(0)) : TakeAllBack());
}

std::string PermissionsDialog::TakeBack(const std::string& words) {
  const auto chosen = std::find_if(shown_.begin(), shown_.end(),
                                   [&](const auto& decision) { return Words(decision) == words; });
  if (chosen == shown_.end()) return "";
  const bool stored = book_().Forget(chosen->site, chosen->kind);
  return "Taken back: " + words + ". The site has to ask again." + (stored ? "" : kNotStored) + " ";
}

std::string PermissionsDialog::TakeAllBack() {
  bool stored = true;
  for (const auto& decision : shown_)
    stored = book_().Forget(decision.site, decision.kind) && stored;
  return std::string("All decisions are taken back. The sites have to ask again.") +
         (stored ? "" : kNotStored) + " ";
}

}  // namespace corvane::desktop
