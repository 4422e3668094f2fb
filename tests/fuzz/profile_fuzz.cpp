#include "base/profile_text.h"

#include "tests/fuzz/fuzz.h"

namespace profile = corvane::profile;

// Internet shortcuts and other profile files.
void FuzzOne(const std::string& input) {
  const auto value = profile::value(input, "InternetShortcut", "URL");
  Promise(value.find_first_of("\r\n") == std::string_view::npos);
  profile::value(input, input.substr(0, input.find('\n')), "");
}
