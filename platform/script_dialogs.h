#pragma once

#include <functional>
#include <string>

namespace corvane {

/// Shows the alerts of page scripts. The page waits until `done` is called,
/// which may be at once or later; calling it after the page has gone does
/// nothing.
class ScriptDialogs {
 public:
  virtual ~ScriptDialogs() = default;
  /// `page`: as DialogQuestion::asker.
  virtual void ShowAlert(void* page, const std::string& text, std::function<void()> done) = 0;
};

}  // namespace corvane
