#pragma once

#include <vector>

#include "platform/linux/pdf/node.h"

class PDFDoc;

namespace corvane::pdf {

/// Makes headings of what the document's outline names, when there are no headings yet:
/// the paragraph at that place with those words, or else a heading put there. Only of the
/// first `pages`.
void AddHeadings(PDFDoc& document, int pages, std::vector<Node>& nodes);

}  // namespace corvane::pdf
