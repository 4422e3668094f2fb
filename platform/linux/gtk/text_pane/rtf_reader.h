#pragma once

#include <string_view>

#include "platform/linux/gtk/text_pane/styled_text.h"

namespace corvane::desktop {

/// Whether a text says of itself that it is RTF.
bool IsRtf(std::string_view text);

/// Reads RTF: characters (also as \'hh, \u with its fallback skipped), fonts,
/// colours, the formats of RichTextBox::Format. `base` is what \plain and \pard
/// go back to. Whatever else it holds (pictures, objects, notes) is left out.
/// Hostile input is safe: groups nest 200 deep at most, the text has at most 64
/// million bytes, tables are bounded; what is cut off is lost, what came before
/// is kept.
StyledText ReadRtf(std::string_view rtf, const RichTextBox::Format& base);

}  // namespace corvane::desktop
