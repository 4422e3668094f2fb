#pragma once

#include <functional>
#include <string>

namespace corvane {

/// Messages that the user must notice: shown as an accessible dialog that Enter
/// and Escape close, and spoken.
class MessageBox {
 public:
  enum class Icon { Critical, Exclamation, Information };

  virtual ~MessageBox() = default;

  /// Shows `text` (UTF-8). May return before the user has closed the box; boxes
  /// asked for meanwhile follow one after the other. `closed`, where given, is called
  /// once the user has closed this one and is back where he was; perhaps before this
  /// returns, and never when the program ends before.
  virtual void Show(const std::string& text, Icon icon, const std::string& title = "",
                    std::function<void()> closed = nullptr) = 0;
};

}  // namespace corvane
