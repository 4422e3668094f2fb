#pragma once

#include <string>
#include <vector>

#include "platform/rich_text_box.h"

namespace corvane::desktop {

/// A piece of text in one format. Paragraphs end in line feeds; a paragraph's
/// own formats are those of its first character.
struct StyledRun {
  std::string text;
  RichTextBox::Format format;
  bool operator==(const StyledRun&) const = default;
};

using StyledText = std::vector<StyledRun>;

}  // namespace corvane::desktop
