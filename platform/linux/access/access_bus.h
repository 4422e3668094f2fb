#pragma once

#include <gio/gio.h>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/linux/glib/owner.h"

namespace corvane::desktop {

/// An element's place: a program's name on the accessibility bus and the
/// element's path there.
struct ElementRef {
  std::string bus;
  std::string path;
  bool operator==(const ElementRef&) const = default;
};

/// A connection of our own to the accessibility bus, on a thread of its own, so
/// that neither a slow program nor a broken bus keeps the user waiting. A bus
/// that is missing, stale or goes away is an answer like any other.
class AccessBus {
 public:
  using Reply = std::function<void(VariantPtr)>;
  /// Empty: connected.
  using Connected = std::function<void(const std::string& problem)>;

  /// `lost` is called on the bus's thread when a connection ends by itself.
  explicit AccessBus(std::function<void()> lost);
  ~AccessBus();
  AccessBus(const AccessBus&) = delete;
  AccessBus& operator=(const AccessBus&) = delete;

  /// Runs something on the bus's thread; from any thread.
  void Post(std::function<void()> run);

  /// Runs `question` on the bus's thread with a place for its answer and waits
  /// for that no longer than the user's thread may stand still. A late answer is
  /// dropped. From the user's thread.
  template <class Answer>
  std::optional<Answer> Ask(std::function<void(std::function<void(Answer)>)> question) {
    auto promise = std::make_shared<std::promise<Answer>>();
    auto answer = promise->get_future();
    Post([promise, question = std::move(question)] {
      question([promise](Answer value) { promise->set_value(std::move(value)); });
    });
    if (answer.wait_for(kPatience) != std::future_status::ready) return std::nullopt;
    try {
      return answer.get();
    } catch (const std::future_error&) {  // the question was dropped
      return std::nullopt;
    }
  }

  // The rest on the bus's thread only.
  void Connect(Connected connected);
  /// The reply is null when the call fails; `args` may be null or floating. A
  /// program has so many milliseconds to answer.
  void Call(const ElementRef& element, const char* interface, const char* method, GVariant* args,
            Reply reply, int timeout = 5000);
  bool IsConnected() const { return connection_ != nullptr; }

 private:
  static constexpr std::chrono::milliseconds kPatience{35};
  static void OnClosed(GDBusConnection* connection, gboolean by_peer, GError* error, gpointer self);
  void Run();
  void FindAddress(std::function<void(const std::string&)> found);
  void Open(const std::string& address);
  void Finish(const std::string& problem);

  std::function<void()> lost_;
  std::vector<Connected> waiting_;
  ObjectPtr<GDBusConnection> connection_;
  ObjectPtr<GDBusConnection> session_;
  ObjectPtr<GCancellable> cancel_{g_cancellable_new()};
  GMainContext* context_ = g_main_context_new();
  GMainLoop* loop_ = g_main_loop_new(context_, FALSE);
  std::thread thread_;
};

}  // namespace corvane::desktop
