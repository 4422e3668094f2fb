#pragma once

#include <string>

namespace corvane {

/// Messages that the user must notice: shown as an accessible dialog that Enter
/// and Escape close, and spoken.
class MessageBox {
 public:
  enum class Icon { Critical, Exclamation, Information };

  virtual ~MessageBox() = default;

  /// Shows `text` (UTF-8). May return before the user has closed the box; boxes
  /// asked for meanwhile follow one after the other.
  virtual void Show(const std::string& text, Icon icon, const std::string& title = "") = 0;
};

}  // namespace corvane
