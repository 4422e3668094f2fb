#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvane {

/// One choice of the program's own, as a dialog shows it.
struct OwnOption {
  std::string label;                 ///< plain words
  std::vector<std::string> choices;  ///< none: on or off
  std::string value;                 ///< one of the choices; "True" or "False" for on and off
};

/// The program's own choices beside those of the rendering engine.
struct OwnOptions {
  std::function<std::vector<OwnOption>()> list;
  /// Gets a value for each option of the list, in its order; what is chosen holds
  /// at once.
  std::function<void(const std::vector<std::string>& values)> apply;
};

}  // namespace corvane
