#include "platform/linux/web/page/text_record.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "base/text.h"
#include "platform/linux/web/page/facts_record.h"
#include "platform/linux/web/web_text.h"

namespace corvane::desktop {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kMostSpans = 200'000;
constexpr std::size_t kMostDocuments = 1000;
constexpr std::size_t kLongestName = 100;  // of a document
constexpr std::size_t kNumbers = 8;        // of one span; text_writer.js has their order

const Json& Member(const Json& object, const char* name) {
  static const Json kNothing;
  const auto found = object.find(name);
  return found == object.end() ? kNothing : *found;
}

int NumberOf(const Json& json, int otherwise) {
  if (!json.is_number_integer()) return otherwise;
  const auto number = json.get<std::int64_t>();
  if (number < 0 || number > std::numeric_limits<int>::max()) return otherwise;
  return static_cast<int>(number);
}

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

void AddSpans(const Json& numbers, const std::vector<ElementFactsPtr>& details, PageText& page) {
  if (!numbers.is_array()) return;
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
    const bool fits =
        kind >= 1 && kind <= PageSpan::kKinds && span.start >= last && span.start < page.length &&
        span.length >= 1 && span.length <= page.length - span.start && span.number >= 1 &&
        span.document >= 0 && static_cast<std::size_t>(span.document) < page.documents.size();
    if (!fits) continue;
    last = span.start;
    span.kind = static_cast<PageSpan::Kind>(kind);
    const auto detail = static_cast<std::size_t>(number(7));
    if (detail < details.size()) span.facts = details[detail];
    page.spans.push_back(std::move(span));
  }
}

}  // namespace

std::shared_ptr<PageText> ParsePageText(std::string_view text) {
  const Json json = Json::parse(text, nullptr, /*allow_exceptions=*/false);
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
  page->documents = DocumentsOf(Member(json, "documents"));
  AddSpans(Member(json, "spans"), DetailsOf(Member(json, "details")), *page);
  return page;
}

std::optional<PageElement> ParsePageElement(std::string_view text) {
  const Json json = Json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (!json.is_array() || json.size() != 2) return std::nullopt;
  const auto* document = json[0].get_ptr<const Json::string_t*>();
  if (document == nullptr || document->size() > kLongestName) return std::nullopt;
  return PageElement{*document, NumberOf(json[1], 0)};
}

}  // namespace corvane::desktop
