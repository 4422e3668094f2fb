#pragma once

#include <functional>
#include <vector>

#include "platform/linux/pdf/node.h"
#include "platform/linux/pdf/page_words.h"
#include "platform/linux/pdf/places.h"

namespace corvane::pdf {

/// The paragraphs of a page as far as its look tells them apart: by what lies between
/// their lines, by indents and by the size of letters. Nothing more is guessed. Of the
/// words only those that are `wanted`.
std::vector<Node> Paragraphs(const Page& page, int number, Places& places,
                             const std::function<bool(const Word&)>& wanted);

}  // namespace corvane::pdf
