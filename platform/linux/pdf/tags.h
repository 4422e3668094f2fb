#pragma once

#include <optional>
#include <vector>

#include "platform/linux/pdf/node.h"
#include "platform/linux/pdf/page_words.h"
#include "platform/linux/pdf/places.h"

class PDFDoc;

namespace corvane::pdf {

/// The document as its author has tagged it. Words that the tags leave out stand at the
/// end of their page, running headers and the like nowhere. Nothing when there are no
/// tags, or when they hold the smaller part of the words. `pages` are the first ones
/// of the document.
std::optional<std::vector<Node>> TaggedNodes(PDFDoc& document, const std::vector<Page>& pages,
                                             Places& places);

}  // namespace corvane::pdf
