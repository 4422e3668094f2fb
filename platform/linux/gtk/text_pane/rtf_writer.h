#pragma once

#include <string>

#include "platform/linux/gtk/text_pane/styled_text.h"

namespace corvane::desktop {

/// Writes RTF that ReadRtf reads back into the same runs; characters beyond
/// ASCII as \u, so that the result is plain ASCII. Text without a font name
/// takes `base`'s font.
std::string WriteRtf(const StyledText& text, const RichTextBox::Format& base);

}  // namespace corvane::desktop
