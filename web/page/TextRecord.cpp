#include "web/page/TextRecord.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "base/text.h"
#include "web/page/FactsRecord.h"
#include "web/page/LongLines.h"
#include "web/page/RecordJson.h"

namespace corvane {
namespace {

using namespace record;

constexpr std::size_t kMostSpans = 200'000;
constexpr std::size_t kMostDocuments = 1000;
constexpr std::size_t kLongestName = 100;  // of a document
constexpr std::size_t kMostHeaders = 100;  // that a cell names
// Numbers of one span and of one cell; text_writer.js has their order.
constexpr std::size_t kNumbers = 8;
constexpr std::size_t kNumbersOfCell = 7;
constexpr int kHeadsColumns = 1;
constexpr int kHeadsRows = 2;

/// Where what a record calls number so and so stands here.
using Places = std::vector<std::optional<std::size_t>>;

std::vector<std::string> DocumentsOf(const Json& json) {
  std::vector<std::string> documents;
  if (!json.is_array()) return documents;
  for (const Json& name : json) {
    if (documents.size() == kMostDocuments) break;
    const auto* text = name.get_ptr<const Json::string_t*>();
    documents.push_back(text != nullptr && text->size() <= kLongestName ? *text : "");
  }
  return documents;
}

std::vector<ElementFactsPtr> DetailsOf(const Json& json) {
  std::vector<ElementFactsPtr> details;
  if (!json.is_array()) return details;
  for (const Json& facts : json) {
    if (details.size() == kMostSpans) break;
    details.push_back(FactsOf(facts));
  }
  return details;
}

bool Fits(const PageSpan& span, int kind, int last, const PageText& page) {
  if (kind < 1 || kind > PageSpan::kKinds || span.start < last || span.length < 0) return false;
  const bool empty = span.length == 0;
  if (empty && kind != static_cast<int>(PageSpan::Kind::Cell)) return false;
  const int end = empty ? page.length + 1 : page.length;
  return span.start < end && span.length <= page.length - span.start && span.number >= 1 &&
         span.document >= 0 && static_cast<std::size_t>(span.document) < page.documents.size();
}

Places AddSpans(const Json& numbers, const std::vector<ElementFactsPtr>& details, PageText& page) {
  Places places;
  if (!numbers.is_array()) return places;
  int last = 0;  // where the one before begins
  for (std::size_t i = 0; i + kNumbers <= numbers.size() && page.spans.size() < kMostSpans;
       i += kNumbers) {
    const auto number = [&](std::size_t at) { return NumberOf(numbers[i + at], -1); };
    PageSpan span;
    const int kind = number(0);
    span.start = number(1);
    span.length = number(2);
    span.number = number(3);
    span.level = std::max(number(4), 0);
    span.more = std::max(number(5), 0);
    span.document = number(6);
    places.emplace_back();
    if (!Fits(span, kind, last, page)) continue;
    places.back() = page.spans.size();
    last = span.start;
    span.kind = static_cast<PageSpan::Kind>(kind);
    const auto detail = static_cast<std::size_t>(number(7));
    if (detail < details.size()) span.facts = details[detail];
    page.spans.push_back(std::move(span));
  }
  return places;
}

std::optional<std::size_t> PlaceOf(const Json& json, const Places& places) {
  const int number = NumberOf(json, -1);
  if (number < 0 || static_cast<std::size_t>(number) >= places.size()) return std::nullopt;
  return places[static_cast<std::size_t>(number)];
}

std::optional<PageCell> CellOf(const Json& numbers, std::size_t from, const Places& places,
                               const PageText& page) {
  const auto number = [&](std::size_t at) { return NumberOf(numbers[from + at], 0); };
  const auto span = PlaceOf(numbers[from], places);
  if (!span || page.spans[*span].kind != PageSpan::Kind::Cell) return std::nullopt;
  PageCell cell;
  cell.span = *span;
  cell.row = number(1);
  cell.column = number(2);
  cell.rows = number(3);
  cell.columns = number(4);
  constexpr int kMost = std::numeric_limits<int>::max() / 2;
  for (const int each : {cell.row, cell.column, cell.rows, cell.columns}) {
    if (each < 1 || each > kMost) return std::nullopt;
  }
  cell.heads_columns = (number(5) & kHeadsColumns) != 0;
  cell.heads_rows = (number(5) & kHeadsRows) != 0;
  cell.heads_until = number(6);
  return cell;
}

void AddHeaders(const Json& lists, const Places& places, PageTable& table) {
  if (!lists.is_array()) return;
  for (const Json& list : lists) {
    if (!list.is_array() || list.empty()) continue;
    const auto cell = PlaceOf(list.front(), places);
    if (!cell) continue;
    auto& headers = table.cells[*cell].headers;
    for (std::size_t i = 1; i < list.size() && headers.size() < kMostHeaders; ++i) {
      const auto header = PlaceOf(list[i], places);
      if (header && header != cell) headers.push_back(*header);
    }
  }
}

/// A table: [its span, the numbers of its cells, headers that they name].
void AddTable(const Json& json, const Places& places, PageText& page) {
  if (!json.is_array() || json.size() != 3 || !json[1].is_array()) return;
  const auto span = PlaceOf(json[0], places);
  if (!span || page.spans[*span].kind != PageSpan::Kind::Table) return;
  PageTable table;
  table.span = *span;
  Places cells;
  const Json& numbers = json[1];
  for (std::size_t i = 0; i + kNumbersOfCell <= numbers.size() && cells.size() < kMostSpans;
       i += kNumbersOfCell) {
    cells.emplace_back();
    auto cell = CellOf(numbers, i, places, page);
    if (!cell) continue;
    cells.back() = table.cells.size();
    table.cells.push_back(*std::move(cell));
  }
  AddHeaders(json[2], cells, table);
  if (!table.cells.empty()) page.tables.push_back(std::move(table));
}

void AddTables(const Json& tables, const Places& places, PageText& page) {
  if (!tables.is_array()) return;
  for (const Json& table : tables) {
    if (page.tables.size() < kMostSpans) AddTable(table, places, page);
  }
}

}  // namespace

std::shared_ptr<PageText> ParsePageText(std::string_view text) {
  const Json json = Parse(text);
  if (!json.is_object()) return nullptr;
  const auto* words = Member(json, "text").get_ptr<const Json::string_t*>();
  // What would not stand in a text view as it is came from no script of the program.
  if (words == nullptr || words->find('\0') != std::string::npos ||
      words->find('\r') != std::string::npos || BreakLongLines(*words) != *words) {
    return nullptr;
  }
  auto page = std::make_shared<PageText>();
  page->text = *words;
  page->length = static_cast<int>(text::length(page->text));
  page->selected = std::min(NumberOf(Member(json, "selected"), -1), page->length);
  page->target = std::min(NumberOf(Member(json, "target"), -1), page->length);
  page->documents = DocumentsOf(Member(json, "documents"));
  const Places places = AddSpans(Member(json, "spans"), DetailsOf(Member(json, "details")), *page);
  AddTables(Member(json, "tables"), places, *page);
  return page;
}

std::optional<PageElement> ParsePageElement(std::string_view text) {
  const Json json = Parse(text);
  if (!json.is_array() || json.size() != 2) return std::nullopt;
  const auto* document = json[0].get_ptr<const Json::string_t*>();
  if (document == nullptr || document->size() > kLongestName) return std::nullopt;
  return PageElement{*document, NumberOf(json[1], 0)};
}

}  // namespace corvane
