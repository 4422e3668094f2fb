#pragma once

#include <functional>
#include <utility>

namespace corvane::desktop {

/// Calls `done` when every part that holds it has ended: for questions that are on
/// their way side by side.
class Together {
 public:
  explicit Together(std::function<void()> done) : done_(std::move(done)) {}
  Together(const Together&) = delete;
  Together& operator=(const Together&) = delete;
  ~Together() { done_(); }

 private:
  std::function<void()> done_;
};

}  // namespace corvane::desktop
