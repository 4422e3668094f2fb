#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/html_document.h"

namespace corvane {

/// Where a frame lies: its index in its parent, the parent's in its own, from
/// the top. The page itself has an empty place.
using FramePlace = std::vector<int>;

/// What a document says of a frame in it, for frames that say nothing
/// themselves.
struct FrameHint {
  std::string title;
  std::string address;
  bool silent = false;  ///< runs no scripts: its own record will not come
};

/// One document as its record described it.
struct PageRecord {
  std::string document_id;
  FramePlace place;
  std::string origin;      ///< of the document
  std::string top_origin;  ///< of the whole page
  bool silent = false;     ///< the document runs no scripts, so it never tells anything unasked
  HTMLDocumentPtr document;
  std::unordered_map<int, HTMLElementPtr> elements;  ///< by the number that events name
  std::vector<FrameHint> frames;
};

/// Reads what the page script wrote; see RecordJson.h.
std::vector<PageRecord> ParseRecords(std::string_view json);
std::optional<PageRecord> ParseRecord(std::string_view json);

}  // namespace corvane
