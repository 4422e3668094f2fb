#pragma once

#include <string>

namespace corvane {

/// The system clipboard's text.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::string& text) = 0;
  virtual std::string GetText() const = 0;
};

}  // namespace corvane
