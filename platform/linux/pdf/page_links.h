#pragma once

#include "platform/linux/pdf/page_words.h"

class GooString;
class LinkAction;
class PDFDoc;
class Page;

namespace corvane::pdf {

/// Where an action of the document leads; nowhere (page 0, no address) for whatever is
/// neither a place in it nor an address that a browser goes to.
Target TargetOf(PDFDoc& document, const LinkAction* action);

/// Adds the links of the page to `page` and marks the words that lie in them.
void AddLinks(PDFDoc& document, ::Page& source, Page& page);

}  // namespace corvane::pdf
