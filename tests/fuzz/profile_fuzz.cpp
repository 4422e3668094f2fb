#include "platform/linux/store/profile_text.h"

#include "base/text.h"
#include "tests/fuzz/fuzz.h"

using corvane::desktop::FirstCharacters;
using corvane::desktop::ProfileValue;

// Internet shortcuts and other profile files.
void FuzzOne(const std::string& input) {
  const auto value = ProfileValue(input, "InternetShortcut", "URL");
  const std::string first = FirstCharacters(value, 127);
  Promise(corvane::text::length(first) <= 127);
  ProfileValue(input, input.substr(0, input.find('\n')), "");
}
