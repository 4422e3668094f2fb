#include "platform/linux/store/ini_file.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane::desktop;

// A settings file. What is read from it must survive being written and read.
void FuzzOne(const std::string& input) {
  const auto values = ParseIni(input);
  const std::string name = LastPartOf(input);
  Promise(name.find('/') == std::string::npos && name != "..");
  if (!values) return;
  const auto again = ParseIni(FormatIni(*values));
  Promise(again.has_value() && *again == *values);
}
