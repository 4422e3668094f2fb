#include "platform/linux/gtk/dialogs/spoken_dialogs.h"

#include <algorithm>
#include <utility>

#include "platform/linux/glib/later.h"

namespace corvane::desktop {

SpokenDialogs::SpokenDialogs(WindowTable& windows, Speaker speak, Speaker speak_for_pages)
    : windows_(windows), speak_(std::move(speak)), speak_for_pages_(std::move(speak_for_pages)) {}

SpokenDialogs::~SpokenDialogs() { life_.End(); }

int SpokenDialogs::Ask(DialogQuestion question, Done done, Gtk::Window* owner) {
  waiting_.push_back({++last_, std::move(question), std::move(done), owner});
  const int number = last_;
  if (open_number_ == 0) Next();
  return number;
}

void SpokenDialogs::Next() {
  if (open_number_ != 0 || waiting_.empty()) return;
  auto next = std::move(waiting_.front());
  waiting_.pop_front();
  open_number_ = next.number;
  const bool for_page = next.question.from_page && speak_for_pages_;
  open_ = std::make_unique<SpokenDialog>(
      windows_, for_page ? speak_for_pages_ : speak_, std::move(next.question),
      [this, here = life_.Look(), done = std::move(next.done)](const DialogAnswer& answer) {
        const auto call = done;  // the answered dialog may go while this is called
        if (call) call(answer);
        if (here) Over();
      });
  open_->Show(next.owner);
}

// The dialog is still at work: let it finish before it goes.
void SpokenDialogs::Over() {
  PostToLoop([this, here = life_.Look(),
              gone = std::shared_ptr<SpokenDialog>(std::move(open_))]() mutable {
    gone.reset();
    if (!here) return;
    open_number_ = 0;
    Next();
  });
}

void SpokenDialogs::Withdraw(int number) {
  std::erase_if(waiting_, [&](const Waiting& each) { return each.number == number; });
  if (open_number_ == number && open_) Over();
}

}  // namespace corvane::desktop
