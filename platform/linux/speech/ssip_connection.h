#pragma once

#include <sys/types.h>

#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::desktop {

/// A descriptor that is closed with its owner.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }

 private:
  int number_;
};

/// A connection to a speech server that speaks SSIP, the protocol of Speech Dispatcher:
/// lines with a number in front, of which the last has a blank behind it. Never waits
/// longer than it is told. One thread's.
class SsipConnection {
 public:
  using Clock = std::chrono::steady_clock;

  /// What the server tells by itself.
  struct Event {
    enum class Kind { kMark, kBegin, kEnd, kCanceled, kPaused, kResumed };
    Kind kind;
    int message = 0;
    std::string mark = {};
  };
  struct Reply {
    int code = 0;
    std::vector<std::string> lines = {};  ///< without their numbers, but for the last one
    bool Good() const { return code >= 200 && code < 300; }
  };

  /// Connects to the socket; nothing when nobody listens there. Returns at once.
  static std::unique_ptr<SsipConnection> Open(const std::string& socket);

  /// Sends a command, or a text, and waits for the answer; nothing when there is none
  /// until then, or the connection is gone.
  std::optional<Reply> Ask(const std::string& command, Clock::duration limit);
  /// The next event that has come.
  std::optional<Event> TakeEvent();
  /// Waits until something comes, `wake` can be read, or the time is over; false when
  /// the connection is gone.
  bool Wait(int wake, Clock::time_point until);

 private:
  explicit SsipConnection(int socket) : socket_(socket) {}
  bool Send(const std::string& command);
  bool Read();
  void TakeLine(std::string_view line);
  void Told(int code);

  Descriptor socket_;
  bool gone_ = false;
  std::string unread_;              // what is no whole line yet
  std::vector<std::string> lines_;  // of an answer that is no whole one yet
  std::vector<std::string> told_;   // the same of an event
  std::deque<Reply> replies_;
  std::deque<Event> events_;
  int owed_ = 0;
};

}  // namespace corvane::desktop
