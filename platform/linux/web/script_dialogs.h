#pragma once

#include <functional>
#include <optional>
#include <string>

namespace corvane::desktop {

/// Shows what page scripts ask of the user. The page waits until `done` is
/// called, which may be at once or later; calling it after the page has gone
/// does nothing. What is not overridden answers for the user in the safe way.
class ScriptDialogs {
 public:
  virtual ~ScriptDialogs() = default;
  virtual void ShowAlert(const std::string& text, std::function<void()> done) = 0;
  virtual void ShowConfirm(const std::string& /*text*/, std::function<void(bool)> done) {
    done(false);
  }
  virtual void ShowPrompt(const std::string& /*text*/, const std::string& /*preset*/,
                          std::function<void(std::optional<std::string>)> done) {
    done(std::nullopt);
  }
  /// A page asks whether it may be left; true leaves it.
  virtual void ShowBeforeUnload(const std::string& /*text*/, std::function<void(bool)> done) {
    done(true);
  }
};

}  // namespace corvane::desktop
