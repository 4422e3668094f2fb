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

/// What follows from a choice in a dialog, while it is open.
struct OwnChange {
  std::vector<OwnOption> options;  ///< as they are now; of others the choices may differ
  /// What the new value is marked with when it is said (base/language.h), so that the voice
  /// is heard that it is for; empty: nothing.
  std::string language;
  std::string example;  ///< said behind it with the same mark; empty: nothing
};

/// The program's own choices beside those of the rendering engine.
struct OwnOptions {
  std::string page = {};  ///< what their own page of the dialog is called; empty: on its first
  std::function<std::vector<OwnOption>()> list;
  /// Gets a value for each option of the list, in its order; what is chosen holds
  /// at once.
  std::function<void(const std::vector<std::string>& values)> apply;
  /// The user has chosen another value, that of option `changed`, and goes on: it holds
  /// meanwhile. May be empty.
  std::function<OwnChange(const std::vector<std::string>& values, std::size_t changed)> try_out =
      {};
  /// Nothing that was tried out holds any more. May be empty.
  std::function<void()> take_back = {};
};

}  // namespace corvane
