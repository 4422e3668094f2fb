#include <glib.h>
#include "platform/linux/store/ini_file.h"

#include "tests/fuzz/fuzz.h"

using namespace corvane::desktop;

// A settings file. What is read from it must survive being written and read.
void FuzzOne(const std::string& input) {
  // What the library has to complain of would fill the user's log.
  static const auto fatal =
      g_log_set_always_fatal(static_cast<GLogLevelFlags>(G_LOG_FATAL_MASK | G_LOG_LEVEL_WARNING));
  static_cast<void>(fatal);
  const auto values = ParseIni(input);
  const std::string name = LastPartOf(input);
  Promise(name.find('/') == std::string::npos && name != "..");
  if (!values) return;
  const auto again = ParseIni(FormatIni(*values));
  Promise(again.has_value() && *again == *values);
}
