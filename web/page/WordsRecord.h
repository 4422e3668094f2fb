#pragma once

#include <optional>
#include <string_view>

#include "platform/page_words.h"

namespace corvane {

/// Reads what the page script found that the page says by itself; see RecordJson.h.
/// Nothing when it does not have the right form.
std::optional<PageWords> ParsePageWords(std::string_view json);

}  // namespace corvane
