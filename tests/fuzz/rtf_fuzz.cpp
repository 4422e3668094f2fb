#include "base/text.h"
#include "platform/linux/gtk/text_pane/rtf_reader.h"
#include "tests/fuzz/fuzz.h"

using namespace corvane;

// Formatted text from the clipboard or a file.
void FuzzOne(const std::string& input) {
  desktop::IsRtf(input);
  for (const auto& run : desktop::ReadRtf(input, {})) Promise(text::valid(run.text) == run.text);
}
