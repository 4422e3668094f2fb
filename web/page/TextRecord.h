#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "platform/page_text.h"

namespace corvane {

/// Reads what the page script wrote of a page's text; null where there is none; see
/// RecordJson.h. No line is longer than a text view can show.
std::shared_ptr<PageText> ParsePageText(std::string_view json);

/// The element that a page script names: [document, number].
std::optional<PageElement> ParsePageElement(std::string_view json);

}  // namespace corvane
