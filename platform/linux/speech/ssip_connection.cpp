#include "platform/linux/speech/ssip_connection.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <utility>

namespace corvane::desktop {
namespace {

constexpr std::size_t kNumber = 3;                           // digits in front of each line
constexpr std::size_t kMostUnread = std::size_t{64} * 1024;  // of one line
constexpr std::size_t kMostLines = 50'000;                   // of one answer
constexpr std::size_t kMostEvents = 10'000;
constexpr int kFirstEvent = 700;
constexpr int kLastEvent = 799;

int NumberIn(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::optional<SsipConnection::Event::Kind> KindOf(int code) {
  constexpr std::array kKinds = {
      SsipConnection::Event::Kind::kMark,   SsipConnection::Event::Kind::kBegin,
      SsipConnection::Event::Kind::kEnd,    SsipConnection::Event::Kind::kCanceled,
      SsipConnection::Event::Kind::kPaused, SsipConnection::Event::Kind::kResumed};
  const auto index = static_cast<std::size_t>(code - kFirstEvent);
  if (index >= kKinds.size()) return std::nullopt;
  return kKinds.at(index);
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

std::unique_ptr<SsipConnection> SsipConnection::Open(const std::string& socket) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (socket.empty() || socket.size() >= sizeof address.sun_path) return nullptr;
  std::memcpy(address.sun_path, socket.data(), socket.size());
  const int number = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (number < 0) return nullptr;
  std::unique_ptr<SsipConnection> connection(new SsipConnection(number));
  if (connect(number, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) return nullptr;
  return connection;
}

bool SsipConnection::Send(const std::string& command) {
  const std::string line = command + "\r\n";
  std::string_view rest = line;
  while (!rest.empty() && !gone_) {
    const ssize_t sent = send(socket_.Number(), rest.data(), rest.size(), MSG_NOSIGNAL);
    if (sent > 0) {
      rest.remove_prefix(static_cast<std::size_t>(sent));
    } else if (errno != EINTR) {
      // A server that lets the socket fill up does not answer any more either.
      gone_ = true;
    }
  }
  if (!gone_) ++owed_;
  return !gone_;
}

std::optional<SsipConnection::Reply> SsipConnection::Ask(const std::string& command,
                                                         Clock::duration limit) {
  const Clock::time_point until = Clock::now() + limit;
  if (!Send(command)) return std::nullopt;
  while (owed_ > 0) {
    if (Clock::now() >= until || !Wait(-1, until)) return std::nullopt;
  }
  Reply reply = std::move(replies_.back());
  replies_.clear();
  return reply;
}

std::optional<SsipConnection::Event> SsipConnection::TakeEvent() {
  if (events_.empty()) return std::nullopt;
  Event event = std::move(events_.front());
  events_.pop_front();
  return event;
}

bool SsipConnection::Wait(int wake, Clock::time_point until) {
  if (gone_) return false;
  std::array<pollfd, 2> wanted{pollfd{socket_.Number(), POLLIN, 0}, pollfd{wake, POLLIN, 0}};
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(until - Clock::now()).count();
  poll(wanted.data(), wanted.size(), static_cast<int>(std::max<decltype(left)>(left, 0)));
  return wanted[0].revents == 0 || Read();
}

bool SsipConnection::Read() {
  std::array<char, 16 * 1024> bytes{};
  const ssize_t count = recv(socket_.Number(), bytes.data(), bytes.size(), 0);
  if (count < 0 && (errno == EAGAIN || errno == EINTR)) return true;
  gone_ = count <= 0;
  if (gone_) return false;
  unread_.append(bytes.data(), static_cast<std::size_t>(count));
  std::size_t taken = 0;
  for (std::size_t end = unread_.find('\n'); end != std::string::npos;
       end = unread_.find('\n', taken)) {
    std::string_view line = std::string_view(unread_).substr(taken, end - taken);
    if (line.ends_with('\r')) line.remove_suffix(1);
    TakeLine(line);
    taken = end + 1;
  }
  unread_.erase(0, taken);
  gone_ = unread_.size() > kMostUnread || lines_.size() > kMostLines || told_.size() > kMostLines ||
          events_.size() > kMostEvents;
  return !gone_;
}

void SsipConnection::TakeLine(std::string_view line) {
  if (line.size() <= kNumber) return;
  const int code = NumberIn(line.substr(0, kNumber));
  const bool is_last = line[kNumber] == ' ';
  const bool is_event = code >= kFirstEvent && code <= kLastEvent;
  const std::string_view words = line.substr(kNumber + 1);
  if (!is_last) {
    (is_event ? told_ : lines_).emplace_back(words);
    return;
  }
  if (is_event) return Told(code);
  replies_.push_back({code, std::exchange(lines_, {})});
  replies_.back().lines.emplace_back(words);
  owed_ = std::max(0, owed_ - 1);
}

// The message's number, the client's, and a mark's name.
void SsipConnection::Told(int code) {
  const std::vector<std::string> words = std::exchange(told_, {});
  const auto kind = KindOf(code);
  if (!kind || words.empty()) return;
  events_.push_back({*kind, NumberIn(words[0]), words.size() > 2 ? words[2] : ""});
}

}  // namespace corvane::desktop
