#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "base/life.h"
#include "platform/linux/gtk/dialogs/spoken_dialog.h"

namespace corvane::desktop {

/// Asks questions, one after the other, and keeps each dialog until it has been
/// answered. Belongs to the user-interface thread.
class SpokenDialogs {
 public:
  using Done = std::function<void(const DialogAnswer&)>;

  /// `speak_for_pages`: for questions whose words are a page's; empty: `speak`.
  SpokenDialogs(WindowTable& windows, Speaker speak, Speaker speak_for_pages = nullptr);
  ~SpokenDialogs();
  SpokenDialogs(const SpokenDialogs&) = delete;
  SpokenDialogs& operator=(const SpokenDialogs&) = delete;

  /// Returns at once; `done` gets the answer. While a question is on the screen
  /// the next ones wait. `owner`: the window to put it in front of, null for the
  /// one that the user is in; it may go meanwhile. Returns the question's number.
  int Ask(DialogQuestion question, Done done, Gtk::Window* owner = nullptr);
  /// Takes the question back, on the screen or not; its `done` is not called. One
  /// that has been answered: nothing happens.
  void Withdraw(int number);

 private:
  struct Waiting {
    int number;
    DialogQuestion question;
    Done done;
    Gtk::Window* owner;
  };
  void Next();
  void Over();

  WindowTable& windows_;
  const Speaker speak_;
  const Speaker speak_for_pages_;
  std::deque<Waiting> waiting_;
  std::unique_ptr<SpokenDialog> open_;
  int open_number_ = 0;  // 0: none
  int last_ = 0;
  Life life_;
};

}  // namespace corvane::desktop
