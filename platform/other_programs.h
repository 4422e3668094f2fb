#pragma once

#include <functional>
#include <string>

namespace corvane {

/// The other programs of the desktop.
class OtherPrograms {
 public:
  virtual ~OtherPrograms() = default;
  /// Whether there is one for addresses of this scheme ("mailto").
  virtual bool CanOpen(const std::string& scheme) const = 0;
  /// Opens the address; `done` gets what went wrong, or an empty text.
  virtual void Open(const std::string& address, std::function<void(const std::string&)> done) = 0;
};

}  // namespace corvane
