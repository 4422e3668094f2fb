#pragma once

#include <functional>

namespace corvane {

/// The sound of all pages of the program, beside the program's own speech.
class PageSound {
 public:
  virtual ~PageSound() = default;
  /// `held` is asked for each page that is loaded: whether its sound waits until the user
  /// does something there.
  virtual void HoldBackWhile(std::function<bool()> held) = 0;
  /// How loud pages are from now on, in percent of what they would be. They get there
  /// without a sound of its own, within a quarter of a second. Returns at once.
  virtual void SetLevel(int percent) = 0;
};

}  // namespace corvane
