#include "platform/linux/page_questions.h"

#include <glibmm/wrap.h>
#include <gtkmm/window.h>

#include <utility>

namespace corvane::desktop {
namespace {

/// A question that is open; ends with it, one way or the other.
struct Open {
  explicit Open(SpokenDialogs& among) : dialogs(among) {}
  ~Open() {
    if (number != 0) dialogs.Withdraw(number);
  }
  Open(const Open&) = delete;
  Open& operator=(const Open&) = delete;

  SpokenDialogs& dialogs;
  int number = 0;  // 0: answered
};

}  // namespace

std::shared_ptr<void> PageQuestions::Ask(const DialogQuestion& question,
                                         std::function<void(const DialogAnswer&)> done) {
  auto* page = static_cast<GtkWidget*>(question.asker);
  GtkWidget* top = page ? gtk_widget_get_toplevel(page) : nullptr;
  auto* owner = GTK_IS_WINDOW(top) ? Glib::wrap(GTK_WINDOW(top)) : nullptr;
  const auto open = std::make_shared<Open>(dialogs_);
  open->number = dialogs_.Ask(
      question,
      [weak = std::weak_ptr(open), done = std::move(done)](const DialogAnswer& answer) {
        if (const auto answered = weak.lock()) answered->number = 0;
        done(answer);
      },
      owner);
  return open;
}

}  // namespace corvane::desktop
