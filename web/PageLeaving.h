#pragma once

#include <functional>

#include "web/Watchdog.h"

namespace corvane {

/// Going away from the page on the screen. That page has to let the user go: one that
/// does not answer is ended after a moment, and what the user wanted is done then. The
/// page of a problem that is on its way would take the place of whatever is loaded
/// meanwhile, so that what the user wants waits until it is there.
class PageLeaving {
 public:
  /// What asks the engine for another page.
  using Go = std::function<void()>;

  /// `end_page` ends the process of the page.
  PageLeaving(Watchdog& watchdog, std::function<void()> end_page);

  /// Goes as soon as the page lets go.
  void Leave(Go go);
  /// Ends the process of a page that does not answer.
  void EndPage();
  /// Another page is there, or nothing else has come: nothing is left to go to.
  void Arrived() { go_ = nullptr; }

  /// The engine has been given the page of a problem.
  void ProblemLoads() { problem_loads_ = true; }
  /// Nothing else loads any more, so that page is there. Returns what has waited for
  /// it, to be left for; null for nothing.
  Go ProblemIsThere();

  struct Gone {
    bool hung;  ///< by EndPage, not by itself
    Go next;    ///< what is to be done now; null: the user is to be told
  };
  /// The page's process is gone. `waiting`: the page asked for is not there yet.
  Gone ProcessGone(bool waiting);

 private:
  Watchdog& watchdog_;
  const std::function<void()> end_page_;
  Go go_;             // done again when the page that was to be left hangs
  Go after_problem_;  // waits for the page of a problem
  bool problem_loads_ = false;
  bool hung_ = false;
};

}  // namespace corvane
