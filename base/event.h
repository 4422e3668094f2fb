#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

/// Keeps one handler connected to an Event; letting go of it disconnects the
/// handler. Movable, not copyable. Safe to outlive the event.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::function<void()> disconnect) : disconnect_(std::move(disconnect)) {}
  Connection(Connection&& other) noexcept
      : disconnect_(std::exchange(other.disconnect_, nullptr)) {}
  Connection& operator=(Connection&& other) noexcept {
    if (this != &other) {
      Disconnect();
      disconnect_ = std::exchange(other.disconnect_, nullptr);
    }
    return *this;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { Disconnect(); }

  /// Disconnects now; harmless when nothing is connected.
  void Disconnect() {
    if (auto disconnect = std::exchange(disconnect_, nullptr)) disconnect();
  }

 private:
  std::function<void()> disconnect_;
};

/// The connections of one listener, dropped together.
class Connections {
 public:
  Connections& operator+=(Connection connection) {
    all_.push_back(std::move(connection));
    return *this;
  }
  void Clear() { all_.clear(); }

 private:
  std::vector<Connection> all_;
};

/// A hook that a control offers to whoever listens. Handlers run in the order
/// in which they were connected, on the thread that raises. A handler may
/// disconnect itself or others and may destroy the event while it is raised: a
/// handler disconnected meanwhile is not called any more.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;
  Event(Event&&) noexcept = default;
  Event& operator=(Event&&) noexcept = default;
  ~Event() = default;

  [[nodiscard]] Connection Connect(Handler handler) {
    auto entry = std::make_shared<Handler>(std::move(handler));
    if (!handlers_) handlers_ = std::make_shared<List>();
    handlers_->push_back(entry);
    return Connection([weak = std::weak_ptr(handlers_), entry] {
      *entry = nullptr;
      if (auto all = weak.lock())
        all->erase(std::remove(all->begin(), all->end(), entry), all->end());
    });
  }

  /// Whether anybody would be told.
  bool HasListeners() const { return handlers_ && !handlers_->empty(); }

  void Raise(Args... args) const {
    if (!handlers_) return;
    const auto snapshot = *handlers_;
    for (const auto& entry : snapshot) {
      if (!*entry) continue;
      const auto keep_alive = *entry;  // a handler may disconnect itself
      keep_alive(args...);
    }
  }

 private:
  using List = std::vector<std::shared_ptr<Handler>>;
  // Made with the first handler: a page has hundreds of thousands of events that nobody
  // ever listens to.
  std::shared_ptr<List> handlers_;
};

}  // namespace corvane
