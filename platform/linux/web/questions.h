#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane::desktop {

/// Something that the user is asked in a dialog of the program's own.
struct Question {
  struct Field {
    std::string label;
    std::string value;
    bool secret = false;  ///< what is typed is neither shown nor spoken
  };
  std::string title;
  std::string text;
  std::vector<Field> fields;
  /// With "&" before the letter of the access key. The first one is what Enter
  /// presses, the last one what Escape presses.
  std::vector<std::string> buttons;
};

struct Reply {
  int button = 0;                   ///< index of the button pressed
  std::vector<std::string> values;  ///< one for each field
};

/// Shows questions to the user.
class Questions {
 public:
  virtual ~Questions() = default;
  /// Asks without waiting; `done` is called once, after this has returned.
  /// Letting go of what is returned takes the question back: it closes, and
  /// nothing is called.
  [[nodiscard]] virtual std::shared_ptr<void> Ask(const Question& question,
                                                  std::function<void(Reply)> done) = 0;
};

}  // namespace corvane::desktop
