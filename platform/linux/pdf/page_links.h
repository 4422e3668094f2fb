#pragma once

#include <string>

#include "platform/linux/pdf/page_words.h"

class GooString;
class LinkAction;
class PDFDoc;
class Page;

namespace corvane::pdf {

/// Where an action of the document leads; nowhere (page 0, no address) for whatever is
/// neither a place in it nor an address that a browser goes to. `base`: the document's own
/// address, for addresses that are only a part of one.
Target TargetOf(PDFDoc& document, const LinkAction* action, const std::string& base);

/// Adds the links of the page to `page` and marks the words that lie in them.
void AddLinks(PDFDoc& document, ::Page& source, const std::string& base, Page& page);

}  // namespace corvane::pdf
