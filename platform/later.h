#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace corvane {

/// Runs an action once, so many seconds from now, on the user-interface thread and never
/// from within the call. Letting go of what is returned forgets the action.
using Later = std::function<std::shared_ptr<void>(double seconds, std::function<void()> action)>;

/// One thing that is to be done later. Starting it again, or letting go of it, forgets what
/// was to be done.
class Pending {
 public:
  explicit Pending(Later later) : later_(std::move(later)) {}

  void Start(double seconds, std::function<void()> action) {
    waiting_ = later_(seconds, [this, action = std::move(action)] {
      const auto done = std::exchange(waiting_, nullptr);  // may start again, or destroy this
      action();
    });
  }
  void Cancel() { waiting_.reset(); }
  bool Running() const { return waiting_ != nullptr; }

 private:
  Later later_;
  std::shared_ptr<void> waiting_;
};

/// Runs `work` on another thread, and there nothing of the program's but what it has been
/// given; then, on the user-interface thread and in turn, what it returns. Heavy work leaves
/// much memory behind, which is given back.
enum class Weight { Light, Heavy };
using Aside = std::function<void(Weight weight, std::function<std::function<void()>()> work)>;

/// How those who wait are served.
struct Schedule {
  Later later;
  Aside aside;
  std::function<double()> now;  ///< seconds since some moment
};

}  // namespace corvane
