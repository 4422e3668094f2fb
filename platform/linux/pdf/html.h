#pragma once

#include <string>

#include "platform/linux/pdf/node.h"

namespace corvane::pdf {

/// The document as a page: UTF-8, nothing in it that runs or loads. What does not fit
/// into `longest` bytes is left out, with a sentence about it at the end.
std::string Html(const Written& written, std::size_t longest);

}  // namespace corvane::pdf
