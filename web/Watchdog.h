#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "base/life.h"
#include "platform/later.h"

namespace corvane {

/// Notices a page that no longer answers. It sends a ping when told to and waits
/// for the answer; while `keep_watching` says so (a page loads) the next ping
/// follows some time after each answer.
class Watchdog {
 public:
  struct Limits {
    double warn = 5;    ///< seconds without an answer until the user is told
    double end = 15;    ///< until the page is given up; four times that while it loads
    double pause = 1;   ///< between an answer and the next ping
    double keys = 1.5;  ///< that Tab waits for the page before it leads out
  };
  using Answer = std::function<void()>;

  /// `ping` sends one and calls the answer when it is there.
  Watchdog(Limits limits, Later later, std::function<void(Answer)> ping,
           std::function<bool()> keep_watching, std::function<void()> warn,
           std::function<void()> end);

  /// Makes sure that a ping is under way.
  void Watch();
  /// A ping once the page has been given the event that is being handled: the answer
  /// to an earlier one says nothing about what the page does with the event.
  void WatchSoon();
  /// The user goes elsewhere: a ping that is under way or due may take no longer than
  /// it takes until the user would be told.
  void Hurry();
  /// Forgets the ping under way: the page is another one, or its process is gone.
  void Reset();
  /// Whether the user has been told and no answer has come since.
  bool Warned() const { return warned_; }

 private:
  using Waiting = std::shared_ptr<void>;

  void Given();
  void Answered();
  void EndIn(double seconds);

  Limits limits_;
  Later later_;
  std::function<void(Answer)> ping_;
  std::function<bool()> keep_watching_;
  std::function<void()> warn_;
  std::function<void()> end_;
  std::optional<Life> current_;  // the ping under way; answers to older ones find it gone
  bool again_ = false;           // the page was given an event after it
  bool hurried_ = false;
  bool warned_ = false;
  Waiting to_warn_;
  Waiting to_end_;
  Waiting pause_;
  Waiting soon_;
};

}  // namespace corvane
